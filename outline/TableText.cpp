#include "outline/TableText.h"

#include "shared/AnsiCodePage.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>

namespace {

constexpr QStringView binaryText = u"This is no table of text !";
constexpr QStringView openQuoteText = u"A quotation mark of the table is never closed, in its row ";
constexpr QStringView tooLargeText = u"The table is larger than any map !";

constexpr QChar quote = u'"';
/** Those that stand in texts least come first: they win where the rows do not tell. */
constexpr std::array<QChar, 3> separators = { QChar(u'\t'), QChar(u';'), QChar(u',') };
/** The separator is told by so many rows. */
constexpr qsizetype rowsLookedAt = 50;

bool IsLineEnd(QChar character)
{
    return character == u'\r' || character == u'\n';
}

/** Reads a table row by row. */
class TableReader
{
public:
    TableReader(QStringView text, QChar separator)
        : text_(text)
        , separator_(separator)
    {
    }

    [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
    /** Whether the text ended within quotes. */
    [[nodiscard]] bool IsQuoteOpen() const { return isQuoteOpen_; }

    QStringList Row()
    {
        QStringList fields = { Field() };
        while (!AtEnd() && text_[at_] == separator_) {
            ++at_;
            const QString field = Field();
            if (fields.size() <= TableReading::mostColumns) {
                fields << field;
            }
        }
        PassLineEnd();
        return fields;
    }

private:
    QString Field()
    {
        QString field;
        if (!AtEnd() && text_[at_] == quote) {
            ++at_;
            field = Quoted();
        }
        // What stands between closing quotes and the end of the field is taken for a part of it.
        const qsizetype start = at_;
        while (!AtEnd() && text_[at_] != separator_ && !IsLineEnd(text_[at_])) {
            ++at_;
        }
        return field + text_.sliced(start, at_ - start);
    }

    /** What stands before the closing quotes, which are passed over. */
    QString Quoted()
    {
        QString field;
        while (true) {
            const qsizetype end = text_.indexOf(quote, at_);
            if (end < 0) {
                isQuoteOpen_ = true;
                field += text_.sliced(at_);
                at_ = text_.size();
                return field;
            }
            field += text_.sliced(at_, end - at_);
            at_ = end + 1;
            if (AtEnd() || text_[at_] != quote) {
                return field;
            }
            field += quote;
            ++at_;
        }
    }

    void PassLineEnd()
    {
        if (!AtEnd() && text_[at_] == u'\r') {
            ++at_;
            if (!AtEnd() && text_[at_] == u'\n') {
                ++at_;
            }
        } else if (!AtEnd()) {
            ++at_;
        }
    }

    QStringView text_;
    QChar separator_;
    qsizetype at_ = 0;
    bool isQuoteOpen_ = false;
};

/** How well a separator fits: in how many of the first rows there are as many as in the first, and how many.
 */
struct Fit
{
    qsizetype rows = 0;
    qsizetype columns = 0;

    [[nodiscard]] bool IsWorseThan(const Fit& other) const
    {
        return rows < other.rows || (rows == other.rows && columns < other.columns);
    }
};

Fit FitOf(QStringView text, QChar separator)
{
    TableReader reader(text, separator);
    Fit fit;
    for (qsizetype row = 0; row < rowsLookedAt && !reader.AtEnd(); ++row) {
        const qsizetype columns = reader.Row().size();
        fit.columns = row == 0 ? columns : fit.columns;
        fit.rows += columns == fit.columns && columns > 1 ? 1 : 0;
    }
    return fit;
}

QChar SeparatorOf(QStringView text)
{
    QChar best = separators.front();
    Fit bestFit;
    for (const QChar separator : separators) {
        const Fit fit = FitOf(text, separator);
        if (bestFit.IsWorseThan(fit) && fit.rows > 0) {
            best = separator;
            bestFit = fit;
        }
    }
    return best;
}

bool IsBlankRow(const QStringList& row)
{
    return std::all_of(
        row.begin(), row.end(), [](const QString& field) { return field.trimmed().isEmpty(); });
}

} // namespace

QString TableTextOf(QByteArrayView bytes)
{
    if (const auto wide = QStringConverter::encodingForData(bytes);
        wide == QStringConverter::Utf16LE || wide == QStringConverter::Utf16BE) {
        return QStringDecoder(*wide).decode(bytes);
    }
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? AnsiCodePage::Decode(bytes) : text;
}

TableReading ReadTable(QStringView text)
{
    if (text.size() > TableReading::mostBytes) {
        return { {}, tooLargeText.toString() };
    }
    if (text.contains(QChar(u'\0'))) {
        return { {}, binaryText.toString() };
    }
    TableReader reader(text, SeparatorOf(text));
    TableReading reading;
    while (!reader.AtEnd()) {
        const QStringList row = reader.Row();
        if (reader.IsQuoteOpen()) {
            return { {}, openQuoteText + QString::number(reading.Rows.size() + 1) + u" !" };
        }
        if (reading.Rows.size() == TableReading::mostRows || row.size() > TableReading::mostColumns) {
            return { {}, tooLargeText.toString() };
        }
        reading.Rows << row;
    }
    while (!reading.Rows.isEmpty() && IsBlankRow(reading.Rows.constLast())) {
        reading.Rows.removeLast();
    }
    return reading;
}

qsizetype ColumnCount(const TableRows& rows)
{
    qsizetype count = 0;
    for (const QStringList& row : rows) {
        count = std::max(count, row.size());
    }
    return count;
}
