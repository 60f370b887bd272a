#include "outline/RegionChoice.h"
#include "tests/outline/Pictures.h"

#include <QTest>

namespace {

QStringList Held(const RegionChoice& choice, QSize size)
{
    QStringList rows;
    for (int y = 0; y < size.height(); ++y) {
        QString row;
        for (int x = 0; x < size.width(); ++x) {
            row += choice.Holds({ x, y }) ? u'#' : u'.';
        }
        rows << row;
    }
    return rows;
}

} // namespace

class tst_regionchoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void regionTakenAloneReplacesOthers();
    void regionsAreJoined();
    void regionIsTakenOff();
    void lastOneFollowsTheTolerance();
    void takingOffFollowsTheToleranceToo();
    void nothingIsHeldOnceCleared();
    void eachIslandIsAPiece();
    void holesAreFound();
    void holesThatTouchAtACornerAreTwo();
    void pocketThatACornerClosesIsAHole();
    void islandInAHoleIsAPiece();
};

void tst_regionchoice::regionTakenAloneReplacesOthers()
{
    const QImage picture = Drawn({ "##.rr" });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, usualTolerance);
    choice.Take({ 4, 0 }, RegionTaking::Alone, usualTolerance);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "...##" }));
    QCOMPARE(choice.Box(), QRect(3, 0, 2, 1));
}

void tst_regionchoice::regionsAreJoined()
{
    const QImage picture = Drawn({ "##.rr", "##..." });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, usualTolerance);
    choice.Take({ 4, 0 }, RegionTaking::Joined, usualTolerance);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "##.##", "##..." }));
    choice.Take({ 2, 0 }, RegionTaking::Joined, usualTolerance);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "#####", "#####" }));
    QCOMPARE(choice.Pieces(PieceHoles::Found).size(), 1U);
}

void tst_regionchoice::regionIsTakenOff()
{
    const QImage picture = Drawn({ "##orr", "##..." });
    RegionChoice choice(picture);
    choice.Take({ 3, 0 }, RegionTaking::Alone, mostTolerance);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "#####", "##..." }));
    choice.Take({ 3, 0 }, RegionTaking::TakenOff, 0);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "###..", "##..." }));
    choice.Take({ 4, 1 }, RegionTaking::TakenOff, 0);
    choice.Take({ 0, 0 }, RegionTaking::TakenOff, 0);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "..#..", "....." }));
}

void tst_regionchoice::lastOneFollowsTheTolerance()
{
    const QImage picture = Drawn({ "#.orr" });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, 0);
    choice.Take({ 4, 0 }, RegionTaking::Joined, 0);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "#..##" }));
    choice.SetTolerance(usualTolerance);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "#.###" }));
    choice.SetTolerance(0);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "#..##" }));
}

void tst_regionchoice::takingOffFollowsTheToleranceToo()
{
    const QImage picture = Drawn({ "#oorr" });
    RegionChoice choice(picture);
    choice.Take({ 4, 0 }, RegionTaking::Alone, usualTolerance);
    choice.Take({ 4, 0 }, RegionTaking::TakenOff, usualTolerance);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "....." }));
    choice.SetTolerance(0);
    QCOMPARE(Held(choice, picture.size()), QStringList({ ".##.." }));
}

void tst_regionchoice::nothingIsHeldOnceCleared()
{
    const QImage picture = Drawn({ "##.rr" });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, 0);
    choice.Take({ 4, 0 }, RegionTaking::Joined, 0);
    choice.Clear();
    QCOMPARE(Held(choice, picture.size()), QStringList({ "....." }));
    QVERIFY(choice.Box().isNull());
    QVERIFY(choice.Pieces(PieceHoles::Found).empty());
    choice.Take({ 4, 0 }, RegionTaking::Joined, 0);
    QCOMPARE(Held(choice, picture.size()), QStringList({ "...##" }));
}

void tst_regionchoice::eachIslandIsAPiece()
{
    const QImage picture = Drawn({ "##.rr", "....r", "#...." });
    RegionChoice choice(picture);
    choice.Take({ 0, 2 }, RegionTaking::Alone, 0);
    choice.Take({ 4, 0 }, RegionTaking::Joined, 0);
    choice.Take({ 1, 0 }, RegionTaking::Joined, 0);
    // Asking does not change what is asked.
    for (int time = 0; time < 2; ++time) {
        const auto pieces = choice.Pieces(PieceHoles::Found);
        QCOMPARE(pieces.size(), 3U);
        QCOMPARE(pieces[0].region.box, QRect(0, 0, 2, 1));
        QCOMPARE(pieces[1].region.box, QRect(3, 0, 2, 2));
        QCOMPARE(pieces[1].region.pixels, 3);
        QCOMPARE(pieces[2].contour, Contour({ { 0, 2 }, { 1, 2 }, { 1, 3 }, { 0, 3 } }));
    }
}

void tst_regionchoice::holesAreFound()
{
    const QImage picture = Drawn({ "#######", "#.##..#", "####..#", "#######" });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, 0);
    const auto pieces = choice.Pieces(PieceHoles::Found);
    QCOMPARE(pieces.size(), 1U);
    QCOMPARE(pieces[0].contour, Contour({ { 0, 0 }, { 7, 0 }, { 7, 4 }, { 0, 4 } }));
    QCOMPARE(pieces[0].holes.size(), 2U);
    QCOMPARE(pieces[0].holes[0], Contour({ { 1, 1 }, { 2, 1 }, { 2, 2 }, { 1, 2 } }));
    QCOMPARE(pieces[0].holes[1], Contour({ { 4, 1 }, { 6, 1 }, { 6, 3 }, { 4, 3 } }));
    QVERIFY(choice.Pieces(PieceHoles::Ignored)[0].holes.empty());
}

void tst_regionchoice::holesThatTouchAtACornerAreTwo()
{
    const QImage picture = Drawn({ "####", "#.##", "##.#", "####" });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, 0);
    const auto pieces = choice.Pieces(PieceHoles::Found);
    QCOMPARE(pieces[0].holes.size(), 2U);
    QCOMPARE(TwiceAreaOf(pieces[0].holes[0]), 2);
    QCOMPARE(TwiceAreaOf(pieces[0].holes[1]), 2);
}

void tst_regionchoice::pocketThatACornerClosesIsAHole()
{
    const QImage picture = Drawn({ "###", "#.#", "##." });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, 0);
    const auto pieces = choice.Pieces(PieceHoles::Found);
    QCOMPARE(pieces[0].contour, Contour({ { 0, 0 }, { 3, 0 }, { 3, 2 }, { 2, 2 }, { 2, 3 }, { 0, 3 } }));
    QCOMPARE(pieces[0].holes.size(), 1U);
}

void tst_regionchoice::islandInAHoleIsAPiece()
{
    const QImage picture = Drawn({ "#####", "#...#", "#.#.#", "#...#", "#####" });
    RegionChoice choice(picture);
    choice.Take({ 0, 0 }, RegionTaking::Alone, 0);
    choice.Take({ 2, 2 }, RegionTaking::Joined, 0);
    const auto pieces = choice.Pieces(PieceHoles::Found);
    QCOMPARE(pieces.size(), 2U);
    QCOMPARE(pieces[0].holes, std::vector<Contour>({ { { 1, 1 }, { 4, 1 }, { 4, 4 }, { 1, 4 } } }));
    QCOMPARE(pieces[1].region.pixels, 1);
}

QTEST_GUILESS_MAIN(tst_regionchoice)
#include "tst_regionchoice.moc"
