#pragma once

#include <QtGlobal>

/** Makes the program's icons known: they lie in Cartolen::app, from which nothing else would fetch them. */
inline void LoadIcons()
{
    Q_INIT_RESOURCE(icons);
}
