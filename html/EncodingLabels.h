#pragma once

#include <QByteArrayView>
#include <QLatin1String>

/**
 * The encoding that a label such as "latin1" means, by the name that the Encoding Standard
 * (encoding.spec.whatwg.org) gives it, for instance "windows-1252"; empty if it means none. Blanks around it
 * and its case do not count.
 */
[[nodiscard]] QLatin1String EncodingOfLabel(QByteArrayView label);
