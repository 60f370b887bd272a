#include "codegen/TodayBlocks.h"

// Every byte counts here: pages hold the hashes of both in their content security policies, and "version" has
// to change with them. The script is one function and leaves no name behind. An area that has a message
// points to it by its aria-describedby; nothing else binds the two, so all messages are there for screen
// readers, on paper and without the script.

const QStringView TodayBlocks::style = uR"css(
.imap{position:relative;display:inline-block;max-width:100%;vertical-align:bottom}
.imap img{position:absolute;inset:0;width:100%;height:100%}
.imap svg{position:relative;display:block;max-width:100%;height:auto;pointer-events:none}
.imap svg *{pointer-events:all;outline:none}
.imap a{cursor:pointer}
.imap svg>:is(a,g):hover{fill:#fff4;stroke:#000;stroke-width:2px}
.imap svg>:focus-visible{fill:#fff8;stroke:#000;stroke-width:4px}
@media (forced-colors:active){.imap svg>:is(:hover,:focus-visible){fill:transparent;stroke:Highlight}}
.imap-fig{width:fit-content;max-width:100%;margin:0}
.imap-out img{max-width:100%;height:auto}
@media screen and (any-hover:hover){.js-imap .imap-out>:not(.on){display:none}}
.imap-out>[popover]{position:fixed;inset:auto;margin:0;padding:.3em .6em;max-width:20em;border:1px solid;background:Canvas;color:CanvasText}
.imap-left{float:left}
.imap-right{float:right}
.imap-top{vertical-align:top}
.imap-texttop{vertical-align:text-top}
.imap-middle{vertical-align:middle}
.imap-baseline{vertical-align:baseline}
)css";

const QStringView TodayBlocks::script = uR"js(
(()=>{const D=document,L=(t,f)=>D.addEventListener(t,f),of=a=>D.getElementById(a.getAttribute("aria-describedby")),
area=e=>e.target.closest?.(".imap svg>[aria-describedby]");let cur,timer;
D.documentElement.classList.add("js-imap");
const on=(t,a)=>{for(const c of t.parentNode.children)c.classList.toggle("on",a?c===t:"start"in c.dataset)},
hide=()=>{clearTimeout(timer);if(!cur)return;const t=of(cur);cur=null;if(t.popover){t.hidePopover();t.popover=null}on(t)},
later=()=>{clearTimeout(timer);timer=setTimeout(hide,300)},
show=(a,x,y)=>{clearTimeout(timer);const t=of(a);if(a===cur||!t)return;hide();cur=a;on(t,a);
if(t.closest(".imap-tips")){t.popover="manual";t.showPopover();const h=t.offsetHeight,s=t.style;
s.left=Math.max(4,Math.min(x+12,D.documentElement.clientWidth-t.offsetWidth-4))+"px";
s.top=Math.max(4,y+h+20>innerHeight?y-h-8:y+16)+"px"}};
L("pointerover",e=>{const a=area(e);if(a)return show(a,e.clientX,e.clientY);if(!cur)return;const t=of(cur);
if(t.contains(e.target))clearTimeout(timer);
else if((t.popover||!cur.closest("figure").contains(e.target))&&!cur.matches(":focus-visible"))later()});
L("pointerdown",e=>{if(e.pointerType!=="mouse"&&!area(e))hide()});
D.documentElement.addEventListener("pointerleave",e=>{if(e.pointerType==="mouse")later()});
L("focusin",e=>{const a=area(e);if(a?.matches(":focus-visible")){const r=a.getBoundingClientRect();show(a,(r.left+r.right)/2,r.bottom-16)}});
L("focusout",e=>{if(cur&&area(e)===cur)later()});
L("keydown",e=>{if(e.key==="Escape")hide()})})();
)js";
