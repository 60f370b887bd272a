#include "shared/SavedLinks.h"

QStringList SavedLinkAddresses(const ImgMap& imgMap)
{
    QStringList addresses;
    for (std::size_t slot = 1; imgMap.SavedLinkMark[slot]; ++slot) {
        addresses << imgMap.SavedLinkURL[slot];
    }
    return addresses;
}

bool IsSavedLinksFull(const ImgMap& imgMap)
{
    return imgMap.SavedLinkMark[mostSavedLinks].has_value();
}

void AddSavedLink(ImgMap& imgMap, const QString& url)
{
    std::size_t slot = 1;
    while (imgMap.SavedLinkMark[slot]) {
        ++slot;
    }
    imgMap.SavedLinkURL[slot] = WithoutBlanksAround(url);
    imgMap.SavedLinkMark[slot] = static_cast<qint16>(slot);
}

void DeleteSavedLink(ImgMap& imgMap, std::size_t slot)
{
    for (; imgMap.SavedLinkMark[slot]; ++slot) {
        imgMap.SavedLinkURL[slot] = imgMap.SavedLinkURL[slot + 1];
        imgMap.SavedLinkMark[slot] = imgMap.SavedLinkMark[slot + 1];
    }
}

QString WithoutBlanksAround(const QString& text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ') {
        ++first;
    }
    while (last > first && text[last - 1] == u' ') {
        --last;
    }
    return text.mid(first, last - first);
}
