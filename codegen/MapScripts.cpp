#include "codegen/MapScripts.h"

// The scripts speak to the browsers they were written for; their blanks and braces are kept to the letter,
// because pages made earlier must come out the same again.

const QStringView MapScripts::switchingImagesHead = uR"(
<script language="JavaScript">
<!-- Hide from old browsers
// Functions onMouseOver - Switching Images

origimage = new Image();
)";

const QStringView MapScripts::switchingImagesFunctions = uR"(
 function imageon(name)    {
        document.altimg.src = eval(name + "on.src");
 }

 function imageoff(name)   {
        document.altimg.src = eval(name + ".src");
 }

 function on(name)    {
        imageon(name);
 }

 function off(name)   {
        imageoff(name);
 }

// End Functions onMouseOver - Switching Images
// -->
</script>

<!-- Begin Image Map -->
)";

const QStringView MapScripts::textAreaHead = uR"(
<script language="JavaScript">
<!-- Hide from old browsers
// Functions onMouseOver - TextArea Messages

 function MakeArray(n) {

   this.length = n;
   for (var i = 1; i <= n; i++) {
       this[i] = 0
   }
       return this;
 }

  var TAreaTips = new MakeArray(1);
)";

const QStringView MapScripts::textAreaFunctions = uR"(
 function writeTip(imgIndex ){
      document.TAreaTipsForm.Tips.value=(TAreaTips[imgIndex]);
  }

// End Functions onMouseOver - TextArea Messages
// -->
</script>

<!-- Begin Image Map -->
)";

const QStringView MapScripts::toolTips = uR"(
<script language="JavaScript">
<!-- Hide from old browsers
// Functions onMouseOver - Tool Tip Messages

if (!document.layers&&!document.all) event="test"

 function showtip(current,e,text) {

      if (document.all) {
           thetitle=text.split('<br>')
         if (thetitle.length>1) {
             thetitles=''
        for (i=0;i<thetitle.length;i++)
             thetitles+=thetitle[i]
             current.title=thetitles
      }
       else
             current.title=text
    }
  else if (document.layers) {
           document.tooltip.document.write('<layer bgColor=lightyellow style="border:1px solid black; font-size:12px;">'+text+'</layer>')
           document.tooltip.document.close()
           document.tooltip.left=e.pageX+5
           document.tooltip.top=e.pageY+5
           document.tooltip.visibility = "show"
      }
    }

 function hidetip() {

      if (document.layers)
          document.tooltip.visibility = "hidden"
     }

// End Functions onMouseOver - Tool Tip Messages
// -->
</script>

<!-- Begin Image Map -->
<DIV ID="tooltip" style="position:absolute; visibility:hidden"></DIV>
)";
