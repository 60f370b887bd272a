#pragma once

#include <QList>
#include <QMessageBox>
#include <QString>
#include <QStringList>

/** What the editor asks before a map is thrown away. */
inline const QString deletionQuestion = QStringLiteral("Do you want to delete your Image Map?");
inline constexpr QMessageBox::StandardButtons yesNo = QMessageBox::Yes | QMessageBox::No;

/** The menu entries that need a figure, and those that need a picture. */
inline const QStringList figureEntries = { QStringLiteral("mnuNew"), QStringLiteral("mnuInsert"),
                                           QStringLiteral("mnuLink"), QStringLiteral("mnuDeleteLast") };
inline const QStringList pictureEntries = { QStringLiteral("mnuFigureColors"), QStringLiteral("mnuFigNum_5"),
                                            QStringLiteral("mnuFigNum_6"), QStringLiteral("mnuFigNum_7"),
                                            QStringLiteral("mnuCursor") };

/** The positions in the toolbar that are enabled. */
inline const QList<int> buttonsAtLoad = { 3, 18 };
inline const QList<int> buttonsWithPicture = { 3, 5, 6, 7, 9, 11, 18 };
inline const QList<int> buttonsWithFigure = { 2, 3, 5, 6, 7, 9, 11, 12, 14, 16, 18 };

/** The header over the messages when no script is written. */
inline const QString disabledHeader = QStringLiteral(" Java Script Disabled - No Messages will be inserted!");
