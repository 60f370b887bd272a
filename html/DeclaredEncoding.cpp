#include "html/DeclaredEncoding.h"

#include "html/HtmlNames.h"

#include <QList>
#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr qsizetype prescanned = 1024;

struct Mark
{
    QByteArrayView bytes;
    QLatin1String encoding;
};

const std::array<Mark, 3> marks = { { { "\xEF\xBB\xBF", utf8Name },
                                      { "\xFE\xFF", QLatin1String("UTF-16BE") },
                                      { "\xFF\xFE", QLatin1String("UTF-16LE") } } };

/** What a declaration in readable bytes can only mean. */
QLatin1String ReadableEncoding(QLatin1String encoding)
{
    if (encoding.startsWith(QLatin1String("UTF-16"))) {
        return utf8Name;
    }
    return encoding == QLatin1String("x-user-defined") ? windows1252Name : encoding;
}

/** Bytes that are read from the front; behind the end there is the byte -1. */
class ByteReader
{
public:
    explicit ByteReader(QByteArrayView bytes)
        : bytes_(bytes)
    {
    }

    [[nodiscard]] bool IsAtEnd() const { return bytes_.isEmpty(); }
    [[nodiscard]] int Byte() const { return bytes_.isEmpty() ? -1 : uchar(bytes_.front()); }
    [[nodiscard]] int ByteAt(qsizetype index) const
    {
        return index < bytes_.size() ? uchar(bytes_[index]) : -1;
    }
    [[nodiscard]] QByteArrayView Rest() const { return bytes_; }
    [[nodiscard]] bool StartsWith(QByteArrayView word) const
    {
        return bytes_.size() >= word.size() &&
               bytes_.first(word.size()).compare(word, Qt::CaseInsensitive) == 0;
    }

    void Pass(qsizetype count = 1) { bytes_ = bytes_.sliced(std::min(count, bytes_.size())); }
    void PassThrough(QByteArrayView word)
    {
        const qsizetype found = bytes_.indexOf(word);
        Pass(found < 0 ? bytes_.size() : found + word.size());
    }
    template<class Wanted> QByteArrayView PassWhile(Wanted isWanted)
    {
        const QByteArrayView all = bytes_;
        while (!IsAtEnd() && isWanted(Byte())) {
            Pass();
        }
        return all.first(all.size() - bytes_.size());
    }

private:
    QByteArrayView bytes_;
};

/** What stands between quotes there, up to the closing one; nothing if there is none. */
std::optional<QByteArrayView> ReadQuoted(ByteReader& reader)
{
    const int quote = reader.Byte();
    reader.Pass();
    const QByteArrayView inside = reader.PassWhile([quote](int byte) { return byte != quote; });
    if (reader.IsAtEnd()) {
        return std::nullopt;
    }
    reader.Pass();
    return inside;
}

struct Attribute
{
    QByteArray name;
    QByteArrayView value;
};

/** The value behind a "="; nothing if the bytes end first. */
std::optional<QByteArrayView> ReadValue(ByteReader& reader)
{
    reader.PassWhile(IsHtmlSpace);
    if (reader.Byte() == '"' || reader.Byte() == '\'') {
        return ReadQuoted(reader);
    }
    const QByteArrayView value = reader.PassWhile([](int byte) { return !IsHtmlSpace(byte) && byte != '>'; });
    return reader.IsAtEnd() ? std::nullopt : std::optional(value);
}

/** The next attribute of a tag; nothing at the tag's end, or if the bytes end first. */
std::optional<Attribute> ReadAttribute(ByteReader& reader)
{
    reader.PassWhile([](int byte) { return IsHtmlSpace(byte) || byte == '/'; });
    if (reader.IsAtEnd() || reader.Byte() == '>') {
        return std::nullopt;
    }
    const QByteArrayView rest = reader.Rest();
    reader.Pass();
    reader.PassWhile(
        [](int byte) { return !IsHtmlSpace(byte) && byte != '/' && byte != '>' && byte != '='; });
    Attribute attribute = { rest.first(rest.size() - reader.Rest().size()).toByteArray().toLower(), {} };
    reader.PassWhile(IsHtmlSpace);
    if (reader.Byte() == '=') {
        reader.Pass();
        const auto value = ReadValue(reader);
        if (!value) {
            return std::nullopt;
        }
        attribute.value = *value;
    }
    return reader.IsAtEnd() ? std::nullopt : std::optional(attribute);
}

/** The encoding in the `content` of a `meta`, as in "text/html; charset=utf-8"; empty if there is none. */
QLatin1String EncodingOfContent(QByteArrayView content)
{
    constexpr QByteArrayView keyword = "charset";
    ByteReader reader(content);
    while (!reader.IsAtEnd()) {
        if (!reader.StartsWith(keyword)) {
            reader.Pass();
            continue;
        }
        reader.Pass(keyword.size());
        reader.PassWhile(IsHtmlSpace);
        if (reader.Byte() == '=') {
            reader.Pass();
            reader.PassWhile(IsHtmlSpace);
            const bool isQuoted = reader.Byte() == '"' || reader.Byte() == '\'';
            return EncodingOfLabel(
                isQuoted ? ReadQuoted(reader).value_or(QByteArrayView())
                         : reader.PassWhile([](int byte) { return !IsHtmlSpace(byte) && byte != ';'; }));
        }
    }
    return {};
}

/** What the attributes of a `meta` declare. */
class MetaDeclaration
{
public:
    void Take(const Attribute& attribute)
    {
        if (known_.contains(attribute.name)) {
            return;
        }
        known_.append(attribute.name);
        if (attribute.name == "http-equiv") {
            isContentType_ = attribute.value.compare("content-type", Qt::CaseInsensitive) == 0;
        } else if (attribute.name == "charset") {
            charset_ = EncodingOfLabel(attribute.value);
        } else if (attribute.name == "content") {
            ofContent_ = EncodingOfContent(attribute.value);
        }
    }

    [[nodiscard]] QLatin1String Encoding() const
    {
        return charset_ ? *charset_ : isContentType_ ? ofContent_ : QLatin1String();
    }

private:
    QList<QByteArray> known_;
    bool isContentType_ = false;
    std::optional<QLatin1String> charset_;
    QLatin1String ofContent_;
};

QLatin1String EncodingOfMeta(ByteReader& reader)
{
    MetaDeclaration declaration;
    while (const auto attribute = ReadAttribute(reader)) {
        declaration.Take(*attribute);
    }
    // A tag that is cut off declares nothing.
    return reader.IsAtEnd() ? QLatin1String() : ReadableEncoding(declaration.Encoding());
}

void PassTag(ByteReader& reader)
{
    reader.PassWhile([](int byte) { return !IsHtmlSpace(byte) && byte != '>'; });
    while (ReadAttribute(reader)) {
    }
}

/** The encoding that the markup at a "<" declares; passes over it. */
QLatin1String EncodingOfTag(ByteReader& reader)
{
    constexpr QByteArrayView meta = "<meta";
    const int first = reader.ByteAt(1);
    if (reader.StartsWith("<!--")) {
        reader.Pass(2);
        reader.PassThrough("-->");
    } else if (
        reader.StartsWith(meta) &&
        (IsHtmlSpace(reader.ByteAt(meta.size())) || reader.ByteAt(meta.size()) == '/')) {
        reader.Pass(meta.size());
        return EncodingOfMeta(reader);
    } else if (IsAsciiLetter(first) || (first == '/' && IsAsciiLetter(reader.ByteAt(2)))) {
        PassTag(reader);
    } else if (first == '!' || first == '/' || first == '?') {
        reader.PassThrough(">");
    } else {
        reader.Pass();
    }
    return {};
}

QLatin1String EncodingOfXmlDeclaration(QByteArrayView page)
{
    constexpr QByteArrayView opening = "<?xml";
    constexpr QByteArrayView keyword = "encoding";
    const auto isBlank = [](int byte) { return byte <= ' '; };
    const qsizetype end = page.indexOf('>');
    const QByteArrayView declaration = page.first(std::max<qsizetype>(end, 0));
    ByteReader reader(declaration);
    reader.PassThrough(keyword);
    reader.PassWhile(isBlank);
    if (!declaration.startsWith(opening) || reader.Byte() != '=') {
        return {};
    }
    reader.Pass();
    reader.PassWhile(isBlank);
    const bool isQuoted = reader.Byte() == '"' || reader.Byte() == '\'';
    const QByteArrayView label = isQuoted ? ReadQuoted(reader).value_or(QByteArrayView()) : QByteArrayView();
    const bool hasBlank = std::ranges::any_of(label, [&isBlank](char byte) { return isBlank(uchar(byte)); });
    return hasBlank ? QLatin1String() : ReadableEncoding(EncodingOfLabel(label));
}

} // namespace

QLatin1String EncodingOfMark(QByteArrayView page)
{
    const auto* const found =
        std::ranges::find_if(marks, [page](const Mark& mark) { return page.startsWith(mark.bytes); });
    return found == marks.end() ? QLatin1String() : found->encoding;
}

QLatin1String EncodingOfMarkup(QByteArrayView page)
{
    const QByteArrayView beginning = page.first(std::min(page.size(), prescanned));
    ByteReader reader(beginning);
    while (!reader.IsAtEnd()) {
        reader.PassWhile([](int byte) { return byte != '<'; });
        const QLatin1String encoding = EncodingOfTag(reader);
        if (!encoding.isEmpty()) {
            return encoding;
        }
    }
    return EncodingOfXmlDeclaration(beginning);
}

bool IsUtf8BeyondAscii(QByteArrayView page)
{
    const auto isBeyond = [](char byte) { return uchar(byte) >= 0x80; };
    const auto* const first = std::ranges::find_if(page, isBeyond);
    return first != page.end() && page.sliced(first - page.begin()).isValidUtf8();
}
