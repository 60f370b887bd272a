#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

/** A chapter of the table of contents with the names of its pages, in order. */
struct HelpChapter
{
    QString title;
    QStringList pages;
};

/** An entry of the keyword index with the names of its pages, in the order of the contents. */
struct HelpKeyword
{
    QString text;
    QStringList pages;
};

/** What keeps a help book from being opened. */
enum class HelpTrouble { None, Missing, Damaged };

/**
 * The help book: pages of HTML with their pictures, bound into one file. A page is known by its name, which
 * is also the topic that it answers.
 */
class HelpBook
{
public:
    HelpBook() = default;
    ~HelpBook();
    Q_DISABLE_COPY_MOVE(HelpBook)

    /**
     * Opens the book in the file `path`. The file is read once and its seal is checked before anything else
     * in it is looked at, so that a damaged one is told and does no harm, and one that is replaced meanwhile
     * neither.
     */
    [[nodiscard]] HelpTrouble Open(const QString& path);

    [[nodiscard]] bool IsOpen() const { return !chapters_.isEmpty(); }

    [[nodiscard]] const QList<HelpChapter>& Chapters() const { return chapters_; }

    /** The keyword index, sorted as people read it. */
    [[nodiscard]] const QList<HelpKeyword>& Keywords() const { return keywords_; }

    /** The first page of the contents. */
    [[nodiscard]] QString FirstPage() const;

    [[nodiscard]] bool HasPage(const QString& name) const { return pages_.contains(name); }
    [[nodiscard]] QString TitleOf(const QString& name) const { return pages_.value(name).title; }

    /** Where the page lies; an address of Qt's resources. */
    [[nodiscard]] QUrl UrlOf(const QString& name) const;

    /** The page that lies at `url`; empty for every other address. */
    [[nodiscard]] QString PageAt(const QUrl& url) const;

    /** The names of the pages that hold every word of `words`, in whole or as a part of a word; best first.
     */
    [[nodiscard]] QStringList Search(QStringView words) const;

private:
    /** What is kept of a page; the texts for searching are in lower case. */
    struct Page
    {
        QString title;
        QStringList keywords;
        QString foldedTitle;
        QString foldedKeywords;
        QString headings;
        QString text;
    };

    void Close();
    [[nodiscard]] bool ReadContents();
    [[nodiscard]] bool ReadPage(const QString& name);
    void MakeIndex();
    [[nodiscard]] QString PathOf(const QString& name) const;
    [[nodiscard]] static int Score(const Page& page, const QString& word);

    QByteArray bytes_; ///< Qt's resources point into it while the book is open
    QString root_;
    QList<HelpChapter> chapters_;
    QList<HelpKeyword> keywords_;
    QHash<QString, Page> pages_;
};
