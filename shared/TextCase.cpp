#include "shared/TextCase.h"

#include "shared/AnsiCodePage.h"

namespace {

/** `character`, or the one that `counterpart` is if a document can hold it. */
QChar Converted(QChar character, const QString& counterpart)
{
    const bool isUsable = counterpart.size() == 1 && AnsiCodePage::Encode(counterpart) != "?";
    return isUsable ? counterpart.front() : character;
}

template<class Convert> QString ConvertedText(QString text, Convert convert)
{
    for (QChar& character : text) {
        if (character.isLetter()) {
            character = Converted(character, convert(QString(character)));
        }
    }
    return text;
}

} // namespace

QString UpperCase(const QString& text)
{
    return ConvertedText(text, [](const QString& letter) { return letter.toUpper(); });
}

QString LowerCase(const QString& text)
{
    return ConvertedText(text, [](const QString& letter) { return letter.toLower(); });
}

QString ProperCase(const QString& text)
{
    QString proper = LowerCase(text);
    bool isWordStart = true;
    for (QChar& character : proper) {
        const bool isWordLetter = character >= u'a' && character <= u'z';
        if (isWordLetter && isWordStart) {
            character = character.toUpper();
        }
        isWordStart = !isWordLetter;
    }
    return proper;
}
