#pragma once

#include "shared/ImgMap.h"

#include <QStringList>

/** So many links can be held; the slot behind them stays free. */
inline constexpr std::size_t mostSavedLinks = ImgMap::savedLinkSlots - 1;

/** The addresses of the saved links, in their order. */
[[nodiscard]] QStringList SavedLinkAddresses(const ImgMap& imgMap);

/** Whether there is no room for another link. */
[[nodiscard]] bool IsSavedLinksFull(const ImgMap& imgMap);

/** Puts `url`, without the blanks around it, into the first free slot; there must be one. */
void AddSavedLink(ImgMap& imgMap, const QString& url);

/** Frees `slot`, from 1; the links behind it move up and keep the marks they were given. */
void DeleteSavedLink(ImgMap& imgMap, std::size_t slot);

/** `text` without the blanks at its ends; other white space stays. */
[[nodiscard]] QString WithoutBlanksAround(const QString& text);
