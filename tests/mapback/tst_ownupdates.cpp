// What this program has written, brought to what the editor has now.

#include "OwnMaps.h"

#include <QTest>
#include <algorithm>

namespace {

/** A page with a map in it, and what has been done to it. */
struct Edited
{
    QString page;
    ReturnedMap map;
    MapSource now;
};

struct FormAndMode
{
    MarkupForm form;
    JSMode mode;
};

QList<FormAndMode> AllForms()
{
    QList<FormAndMode> all;
    for (const JSModeTexts& row : jsModeTexts) {
        all << FormAndMode{ MarkupForm::Html4, row.mode } << FormAndMode{ MarkupForm::Today, row.mode };
        if (HasMapElement(row.mode)) {
            all << FormAndMode{ MarkupForm::TodayMapElement, row.mode };
        }
    }
    return all;
}

QString Written(const FormAndMode& kind, const MapSource& source)
{
    return kind.form == MarkupForm::Html4 ? GenerateMapFor(kind.mode, source)
                                          : TodayMarkup(kind.form, kind.mode, source).replace("\n", "\r\n");
}

Edited Opened(const FormAndMode& kind, int areas)
{
    Edited edited;
    edited.page = u"<html><head><title>x</title></head><body>\r\n<p>in front\r\n" +
                  Written(kind, OddSource(kind.mode, areas, QStringLiteral("text"), true)) +
                  u"\r\n<p>behind\r\n</body></html>\r\n";
    edited.map = OnlyMap(edited.page).value();
    edited.now = edited.map.source;
    return edited;
}

QString Text(const QString& page, const TextReplacement& change)
{
    return page.mid(change.Place.Start, change.Place.Length);
}

} // namespace

class tst_ownupdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneLinkIsOneChange();
    void oneMovedAreaIsOneChange();
    void deletedAreaTakesItsLinesAlone();
    void deletingAndUndoingGivesThePageBack();
    void mapAfterAnUpdateIsTheOneThatIsRead();
    void addressStaysAsItIsWritten();
    void otherModeIsWrittenInTheSameForm();
    void modeThatTheFormHasNoRoomForIsRefused();
    void firstMessageBringsItsScript();
    void otherPictureHasItsOwnPixels();
    void nameIsUniqueInThePage();
    void scaledPictureKeepsWhatIsNotMoved();
    void charactersStayWrittenAsTheyAre();
};

void tst_ownupdates::oneLinkIsOneChange()
{
    for (const FormAndMode& kind : AllForms()) {
        Edited edited = Opened(kind, 3);
        edited.now.Areas[1].Link = QStringLiteral("other.html?q=text");
        const auto update = UpdateMap(edited.page, edited.map, kind.mode, edited.now, SomePage());
        QVERIFY(update);
        // What screen readers say may follow the address.
        const auto isAddress = [&](const TextReplacement& change) {
            return Text(edited.page, change) == QStringLiteral("p1");
        };
        QVERIFY(std::ranges::any_of(update->changes, isAddress) || update->changes.size() == 1);
        QCOMPARE(update->changes.size(), 1);
        QVERIFY(update->changes[0].Place.Length < 100);
    }
}

void tst_ownupdates::oneMovedAreaIsOneChange()
{
    for (const FormAndMode& kind : AllForms()) {
        Edited edited = Opened(kind, 3);
        edited.now.Areas[0].Coordinates = { 7, 3, 16, 15 };
        const auto update = UpdateMap(edited.page, edited.map, kind.mode, edited.now, SomePage());
        QVERIFY(update);
        QCOMPARE(update->changes.size(), 1);
        QVERIFY2(
            !Text(edited.page, update->changes[0]).contains(u'p'),
            qPrintable(Text(edited.page, update->changes[0])));
        const auto read = OnlyMap(Replaced(edited.page, update->changes));
        QVERIFY(read && read->form == kind.form);
        QCOMPARE(Bare(read->source.Areas), Bare(edited.now.Areas));
    }
}

void tst_ownupdates::deletedAreaTakesItsLinesAlone()
{
    for (const FormAndMode& kind : AllForms()) {
        Edited edited = Opened(kind, 8);
        edited.now.Areas.removeLast();
        const auto update = UpdateMap(edited.page, edited.map, kind.mode, edited.now, SomePage());
        QVERIFY(update);
        QVERIFY(update->changes.size() <= 2);
        for (const TextReplacement& change : update->changes) {
            QVERIFY2(change.Text.isEmpty(), qPrintable(change.Text));
        }
    }
}

void tst_ownupdates::deletingAndUndoingGivesThePageBack()
{
    for (const FormAndMode& kind : AllForms()) {
        Edited edited = Opened(kind, 5);
        edited.now.Areas.removeAt(2);
        edited.now.Areas.swapItemsAt(0, 1);
        edited.now.Areas[0].Target = QStringLiteral("elsewhere");
        const auto there = UpdateMap(edited.page, edited.map, kind.mode, edited.now, SomePage());
        QVERIFY(there);
        const QString changed = Replaced(edited.page, there->changes);
        QVERIFY(changed != edited.page);
        const auto back = UpdateMap(changed, there->after, kind.mode, edited.map.source, SomePage());
        QVERIFY(back);
        QCOMPARE(Replaced(changed, back->changes), edited.page);
        QCOMPARE(back->after.place, edited.map.place);
    }
}

void tst_ownupdates::mapAfterAnUpdateIsTheOneThatIsRead()
{
    for (const FormAndMode& kind : AllForms()) {
        Edited edited = Opened(kind, 3);
        edited.now.Areas << OddArea(30, QStringLiteral("new"), kind.mode);
        edited.now.AltText = QStringLiteral("Another text");
        const auto update = UpdateMap(edited.page, edited.map, kind.mode, edited.now, SomePage());
        QVERIFY(update);
        const QString changed = Replaced(edited.page, update->changes);
        const auto read = OnlyMap(changed);
        QVERIFY(read);
        QCOMPARE(read->form, kind.form);
        QCOMPARE(read->place, update->after.place);
        QCOMPARE(read->source.AltText, edited.now.AltText);
        QCOMPARE(read->source.Areas.size(), 4);
        const auto same = UpdateMap(changed, update->after, kind.mode, edited.now, SomePage());
        QVERIFY(same && same->changes.isEmpty());
    }
}

void tst_ownupdates::addressStaysAsItIsWritten()
{
    // Made relative once, the whole path that it was is not known any more.
    const QString page =
        QStringLiteral("<p><span class=\"imap\" id=\"m\">\n<img src=\"a/b%20c.png\" width=\"40\" "
                       "height=\"30\" alt=\"x\">\n<svg width=\"40\" height=\"30\" viewBox=\"0 0 "
                       "40 30\" fill=\"transparent\" fill-rule=\"evenodd\">\n<a "
                       "href=\"/etc/hostname\" aria-label=\"A\"><circle cx=\"1\" cy=\"2\" "
                       "r=\"3\"/></a>\n</svg></span></p>\n");
    const auto map = OnlyMap(page);
    QVERIFY(map && map->form == MarkupForm::Today);
    MapSource now = map->source;
    now.Areas[0].Target = QStringLiteral("t");
    TodayPage context = SomePage();
    context.Path = QStringLiteral("/etc/page.html");
    const auto update = UpdateMap(page, *map, map->mode, now, context);
    QVERIFY(update);
    QCOMPARE(
        Replaced(page, update->changes),
        QString(page).replace("hostname\" aria", "hostname\" target=\"t\" aria"));
}

void tst_ownupdates::otherModeIsWrittenInTheSameForm()
{
    for (const FormAndMode& kind : AllForms()) {
        for (const JSMode mode : { JSStatusBar, JSTextArea }) {
            if (kind.form == MarkupForm::TodayMapElement && !HasMapElement(mode)) {
                continue;
            }
            Edited edited = Opened(kind, 3);
            for (MapArea& area : edited.now.Areas) {
                area.Message = QStringLiteral("said");
            }
            edited.now.ModeDefault = QStringLiteral("nothing");
            const auto update = UpdateMap(edited.page, edited.map, mode, edited.now, SomePage());
            QVERIFY(update);
            const auto read = OnlyMap(Replaced(edited.page, update->changes));
            QVERIFY(read);
            QCOMPARE(read->form, kind.form);
            QCOMPARE(read->mode, mode);
            QCOMPARE(read->place, update->after.place);
            QCOMPARE(read->source.Areas[2].Message, QStringLiteral("said"));
        }
    }
}

void tst_ownupdates::modeThatTheFormHasNoRoomForIsRefused()
{
    const Edited edited = Opened({ MarkupForm::TodayMapElement, JSDisabled }, 3);
    QVERIFY(!UpdateMap(edited.page, edited.map, JSTextArea, edited.now, SomePage()));
}

void tst_ownupdates::firstMessageBringsItsScript()
{
    Edited edited = Opened({ MarkupForm::Today, JSDisabled }, 3);
    edited.now.Areas[0].Message = QStringLiteral("said");
    const auto update = UpdateMap(edited.page, edited.map, JSTextArea, edited.now, SomePage());
    QVERIFY(update);
    const QString changed = Replaced(edited.page, update->changes);
    QVERIFY(changed.contains("<script data-imap"));
    QVERIFY(changed.indexOf("<script data-imap") < changed.indexOf("</head>"));
    QCOMPARE(OnlyMap(changed)->place, update->after.place);

    // A piece of a page has no head.
    const QString piece = edited.map.place.In(edited.page).toString();
    ReturnedMap alone = *OnlyMap(piece);
    const auto inPiece = UpdateMap(piece, alone, JSTextArea, edited.now, SomePage());
    QVERIFY(inPiece);
    const QString changedPiece = Replaced(piece, inPiece->changes);
    QVERIFY(changedPiece.startsWith("<script data-imap"));
    QCOMPARE(OnlyMap(changedPiece)->place, inPiece->after.place);
}

void tst_ownupdates::otherPictureHasItsOwnPixels()
{
    Edited edited = Opened({ MarkupForm::Today, JSDisabled }, 3);
    edited.now.PictureReference = QStringLiteral("large.png");
    edited.now.Areas[0].Coordinates = { 0, 0, 1500, 1400 };
    const auto update = UpdateMap(
        edited.page, edited.map, JSDisabled, edited.now, SomePage(PageCharset::Ascii, { 1600, 1500 }));
    QVERIFY(update);
    const auto read = OnlyMap(Replaced(edited.page, update->changes));
    QVERIFY(read && read->form == MarkupForm::Today);
    QCOMPARE(read->source.PictureReference, QStringLiteral("large.png"));
    QCOMPARE(read->coordinateSize, QSize(1600, 1500));
    QCOMPARE(read->source.Areas.size(), 3);
}

void tst_ownupdates::nameIsUniqueInThePage()
{
    Edited edited = Opened({ MarkupForm::Today, JSTextArea }, 3);
    edited.page.replace("<p>behind", "<p id=taken>bihind");
    edited.now.MapName = QStringLiteral("taken");
    const auto update = UpdateMap(edited.page, edited.map, JSTextArea, edited.now, SomePage());
    QVERIFY(update);
    const auto read = OnlyMap(Replaced(edited.page, update->changes));
    QVERIFY(read && read->form == MarkupForm::Today);
    QCOMPARE(read->source.MapName, QStringLiteral("taken2"));
}

void tst_ownupdates::scaledPictureKeepsWhatIsNotMoved()
{
    for (const MarkupForm form : { MarkupForm::Today, MarkupForm::TodayMapElement }) {
        Edited edited = Opened({ form, JSDisabled }, 40);
        const bool isElement = form == MarkupForm::TodayMapElement;
        QCOMPARE(edited.map.coordinateSize, isElement ? QSize(800, 300) : QSize(400, 300));
        QVERIFY(FitToPicture(edited.map, { 1111, 777 }));
        edited.now = edited.map.source;
        const auto same = UpdateMap(edited.page, edited.map, JSDisabled, edited.now, SomePage());
        QVERIFY(same && same->changes.isEmpty());
        edited.now.Areas[3].Coordinates = { 111, 518, 222, 596 };
        const auto update = UpdateMap(edited.page, edited.map, JSDisabled, edited.now, SomePage());
        QVERIFY(update);
        QCOMPARE(update->changes.size(), 1);
        const QString changed = Replaced(edited.page, update->changes);
        QVERIFY(
            changed.contains(isElement ? "80,200,160,230" : "x=\"40\" y=\"200\" width=\"40\" height=\"30\""));
        const auto again = UpdateMap(changed, update->after, JSDisabled, edited.now, SomePage());
        QVERIFY(again && again->changes.isEmpty());
    }
}

void tst_ownupdates::charactersStayWrittenAsTheyAre()
{
    const MapSource source = OddSource(JSTextArea, 3, QStringLiteral("\u00e4\u65e5"), false);
    for (const PageCharset written : { PageCharset::Ascii, PageCharset::Unicode }) {
        const QString page = TodayMarkup(MarkupForm::Today, JSTextArea, source, written);
        const auto map = OnlyMap(page);
        QVERIFY(map && map->form);
        MapSource now = map->source;
        now.Areas[0].Target = QStringLiteral("t");
        for (const PageCharset wished : { PageCharset::Ascii, PageCharset::Unicode }) {
            const auto update = UpdateMap(page, *map, map->mode, now, SomePage(wished));
            QVERIFY(update);
            QCOMPARE(update->changes.size(), 1);
        }
    }
}

QTEST_GUILESS_MAIN(tst_ownupdates)
#include "tst_ownupdates.moc"
