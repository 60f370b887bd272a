// What the link dialog asks for in each mode.

#include "tests/imagemap/model/MapTest.h"

#include <QTest>

Q_DECLARE_METATYPE(LinkEntry)

namespace {

LinkEntry Without(const QList<LinkField>& fields)
{
    LinkEntry entry = FullEntry();
    for (const LinkField field : fields) {
        entry.SetText(field, {});
    }
    return entry;
}

} // namespace

class tst_linkrules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsAreRequiredInTheirOrder_data();
    void fieldsAreRequiredInTheirOrder();
    void blanksCountAsAText();
    void onlyToolTipsAskForALinkUnderAnotherTitle();
};

void tst_linkrules::fieldsAreRequiredInTheirOrder_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<LinkEntry>("entry");
    QTest::addColumn<QString>("message");
    const QString link = "Please, enter the Link to get conected to !";
    const QString image = "Please, enter the Default Image File Name !";
    const QString switchImage = "Please, enter the File Name for Image to switch to !";
    const QString text = "Please, enter the Default Message !";
    const QString switchText = "Please, enter the Message to switch to !";
    const QString toolTip = "Please, enter the Tool Tip Message !";
    for (const JSModeTexts& texts : jsModeTexts) {
        QTest::addRow("nothing entered, mode %d", texts.mode) << int(texts.mode) << LinkEntry() << link;
        QTest::addRow("all entered, mode %d", texts.mode) << int(texts.mode) << FullEntry() << "";
        QTest::addRow("no link, mode %d", texts.mode)
            << int(texts.mode) << Without({ LinkField::Link }) << link;
    }
    LinkEntry linkAlone;
    linkAlone.SetText(LinkField::Link, "a.html");
    QTest::newRow("no script, link alone") << int(JSDisabled) << linkAlone << "";
    QTest::newRow("status bar, link alone") << int(JSStatusBar) << linkAlone << "";
    QTest::newRow("images, link alone") << int(JSSwitchImages) << linkAlone << image;
    QTest::newRow("images, no image")
        << int(JSSwitchImages) << Without({ LinkField::SwitchImage }) << switchImage;
    QTest::newRow("text area, link alone") << int(JSTextArea) << linkAlone << text;
    QTest::newRow("text area, no message")
        << int(JSTextArea) << Without({ LinkField::TextAreaMessage }) << switchText;
    QTest::newRow("tool tips, link alone") << int(JSToolTips) << linkAlone << toolTip;
}

void tst_linkrules::fieldsAreRequiredInTheirOrder()
{
    QFETCH(const int, mode);
    QFETCH(const LinkEntry, entry);
    QFETCH(const QString, message);
    const std::optional<RequiredField> missing = MissingField(static_cast<JSMode>(mode), entry);
    QCOMPARE(missing.has_value(), !message.isEmpty());
    if (missing) {
        QCOMPARE(missing->message.toString(), message);
        QVERIFY(entry.Text(missing->field).isEmpty());
    }
}

void tst_linkrules::blanksCountAsAText()
{
    LinkEntry entry;
    for (std::size_t field = 0; field < linkFieldCount; ++field) {
        entry.Fields[field] = " ";
    }
    for (const JSModeTexts& texts : jsModeTexts) {
        QVERIFY(!MissingField(texts.mode, entry));
    }
}

void tst_linkrules::onlyToolTipsAskForALinkUnderAnotherTitle()
{
    for (const JSModeTexts& texts : jsModeTexts) {
        const QString title = texts.mode == JSToolTips ? "Image Map Link" : "Cartolen";
        QCOMPARE(RulesOf(texts.mode).newLinkCaption.toString(), title);
    }
}

QTEST_GUILESS_MAIN(tst_linkrules)

#include "tst_linkrules.moc"
