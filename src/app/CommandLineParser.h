// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

#include <map>

namespace TES {

// Turns argv into a map of option names to values. The grammar is the application's own:
// tokens "-key=value", where a value that the shell split at blanks is joined again. The
// host reads no option; Core keeps the map for the plug-in (Core::commandLineArgs()).
class TES_EXPORT CommandLineParser
{
public:
    using ArgumentMap = std::map<QString, QString>;

    // "-key=value" tokens only; the first value of a repeated key wins; "--x=1" gives the
    // key "-x"; a token with a second "=" or without any is ignored; one pair of
    // surrounding double quotes is stripped from the value.
    static ArgumentMap Parse(int argc, char **argv);
    static bool Contains(ArgumentMap const &map, QString const &key);
    // Throws std::out_of_range for an absent key: ask Contains first.
    static QString GetString(ArgumentMap const &map, QString const &key);
};

} // namespace TES
