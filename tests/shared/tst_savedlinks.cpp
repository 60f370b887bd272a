#include "shared/SavedLinks.h"

#include <QTest>
#include <memory>

namespace {

QString UrlNumber(std::size_t number)
{
    return QStringLiteral("link%1.htm").arg(number);
}

} // namespace

class tst_savedlinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void linksFillTheSlotsFromTheFirst();
    void addressesStandInTheOrderOfTheSlots();
    void fiftyLinksAreAllThereIsRoomFor();
    void linkLosesItsBlanksOnly_data();
    void linkLosesItsBlanksOnly();
    void deletingMovesTheLinksBehindUpWithTheirMarks_data();
    void deletingMovesTheLinksBehindUpWithTheirMarks();
    void deletingAFreeSlotDoesNothing();
    void lastSlotStaysFree();
    void linkAddedAfterADeletionGetsTheNumberOfItsSlot();
    void everyLinkCanBeDeletedFromTheFrontOrTheBack();

private:
    void Fill(std::size_t count);
    [[nodiscard]] std::size_t Count() const;
    [[nodiscard]] bool HasNoGaps() const;

    std::unique_ptr<ImgMap> imgMap_;
};

void tst_savedlinks::init()
{
    imgMap_ = std::make_unique<ImgMap>();
}

void tst_savedlinks::Fill(std::size_t count)
{
    for (std::size_t i = 1; i <= count; ++i) {
        AddSavedLink(*imgMap_, UrlNumber(i));
    }
}

std::size_t tst_savedlinks::Count() const
{
    std::size_t count = 0;
    for (const std::optional<qint16>& mark : imgMap_->SavedLinkMark) {
        count += mark ? 1 : 0;
    }
    return count;
}

/** Whether the links stand in the first slots, and what is free is empty. */
bool tst_savedlinks::HasNoGaps() const
{
    for (std::size_t slot = 1; slot < imgMap_->SavedLinkMark.size(); ++slot) {
        const bool isUsed = imgMap_->SavedLinkMark[slot].has_value();
        if (isUsed != (slot <= Count()) || (!isUsed && !imgMap_->SavedLinkURL[slot].isEmpty())) {
            return false;
        }
    }
    return !imgMap_->SavedLinkMark[0].has_value();
}

void tst_savedlinks::linksFillTheSlotsFromTheFirst()
{
    Fill(3);
    for (std::size_t slot = 1; slot <= 3; ++slot) {
        QCOMPARE(imgMap_->SavedLinkURL[slot], UrlNumber(slot));
        QCOMPARE(imgMap_->SavedLinkMark[slot], std::optional(qint16(slot)));
    }
    QCOMPARE(Count(), std::size_t(3));
    QVERIFY(HasNoGaps());
}

void tst_savedlinks::addressesStandInTheOrderOfTheSlots()
{
    QCOMPARE(SavedLinkAddresses(*imgMap_), QStringList());
    Fill(3);
    DeleteSavedLink(*imgMap_, 2);
    QCOMPARE(SavedLinkAddresses(*imgMap_), (QStringList{ UrlNumber(1), UrlNumber(3) }));
    imgMap_ = std::make_unique<ImgMap>();
    Fill(mostSavedLinks);
    QCOMPARE(SavedLinkAddresses(*imgMap_).size(), qsizetype(mostSavedLinks));
}

void tst_savedlinks::fiftyLinksAreAllThereIsRoomFor()
{
    QCOMPARE(mostSavedLinks, std::size_t(50));
    QVERIFY(!IsSavedLinksFull(*imgMap_));
    Fill(49);
    QVERIFY(!IsSavedLinksFull(*imgMap_));
    AddSavedLink(*imgMap_, QStringLiteral("last"));
    QVERIFY(IsSavedLinksFull(*imgMap_));
    QCOMPARE(imgMap_->SavedLinkURL[50], QStringLiteral("last"));
    DeleteSavedLink(*imgMap_, 7);
    QVERIFY(!IsSavedLinksFull(*imgMap_));
}

void tst_savedlinks::linkLosesItsBlanksOnly_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("none") << "a.htm"
                          << "a.htm";
    QTest::newRow("around") << "  a.htm   "
                            << "a.htm";
    QTest::newRow("within") << " a b.htm"
                            << "a b.htm";
    QTest::newRow("other white space") << "\ta.htm \t"
                                       << "\ta.htm \t";
    QTest::newRow("fixed blank") << QStringLiteral("\u00A0a.htm ") << QStringLiteral("\u00A0a.htm");
    QTest::newRow("nothing else") << "   "
                                  << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_savedlinks::linkLosesItsBlanksOnly()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, kept);
    QCOMPARE(WithoutBlanksAround(typed), kept);
    AddSavedLink(*imgMap_, typed);
    QCOMPARE(imgMap_->SavedLinkURL[1], kept);
    QVERIFY(imgMap_->SavedLinkMark[1].has_value());
}

void tst_savedlinks::deletingMovesTheLinksBehindUpWithTheirMarks_data()
{
    QTest::addColumn<std::size_t>("count");
    QTest::addColumn<std::size_t>("slot");
    QTest::newRow("the only one") << std::size_t(1) << std::size_t(1);
    QTest::newRow("the first") << std::size_t(5) << std::size_t(1);
    QTest::newRow("one in the middle") << std::size_t(5) << std::size_t(3);
    QTest::newRow("the last") << std::size_t(5) << std::size_t(5);
    QTest::newRow("the first of a full table") << std::size_t(50) << std::size_t(1);
    QTest::newRow("the last but one of a full table") << std::size_t(50) << std::size_t(49);
    QTest::newRow("the last of a full table") << std::size_t(50) << std::size_t(50);
}

void tst_savedlinks::deletingMovesTheLinksBehindUpWithTheirMarks()
{
    QFETCH(const std::size_t, count);
    QFETCH(const std::size_t, slot);
    Fill(count);
    DeleteSavedLink(*imgMap_, slot);
    QCOMPARE(Count(), count - 1);
    QVERIFY(HasNoGaps());
    for (std::size_t i = 1; i < count; ++i) {
        const std::size_t old = i < slot ? i : i + 1;
        QCOMPARE(imgMap_->SavedLinkURL[i], UrlNumber(old));
        QCOMPARE(imgMap_->SavedLinkMark[i], std::optional(qint16(old)));
    }
}

void tst_savedlinks::deletingAFreeSlotDoesNothing()
{
    Fill(2);
    DeleteSavedLink(*imgMap_, 3);
    DeleteSavedLink(*imgMap_, 51);
    QCOMPARE(Count(), std::size_t(2));
    QVERIFY(HasNoGaps());
}

void tst_savedlinks::lastSlotStaysFree()
{
    Fill(50);
    QVERIFY(!imgMap_->SavedLinkMark[51].has_value());
    QCOMPARE(imgMap_->SavedLinkURL[51], QString());
}

void tst_savedlinks::linkAddedAfterADeletionGetsTheNumberOfItsSlot()
{
    Fill(3);
    DeleteSavedLink(*imgMap_, 1);
    AddSavedLink(*imgMap_, QStringLiteral("new"));
    QCOMPARE(imgMap_->SavedLinkURL[3], QStringLiteral("new"));
    QCOMPARE(imgMap_->SavedLinkMark[1], std::optional<qint16>(qint16(2)));
    QCOMPARE(imgMap_->SavedLinkMark[2], std::optional<qint16>(qint16(3)));
    QCOMPARE(imgMap_->SavedLinkMark[3], std::optional<qint16>(qint16(3)));
}

void tst_savedlinks::everyLinkCanBeDeletedFromTheFrontOrTheBack()
{
    for (const bool isFromTheFront : { true, false }) {
        Fill(50);
        for (std::size_t left = 50; left > 0; --left) {
            DeleteSavedLink(*imgMap_, isFromTheFront ? 1 : left);
            QCOMPARE(Count(), left - 1);
            QVERIFY(HasNoGaps());
        }
    }
}

QTEST_GUILESS_MAIN(tst_savedlinks)

#include "tst_savedlinks.moc"
