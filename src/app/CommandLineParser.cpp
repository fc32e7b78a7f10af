// SPDX-License-Identifier: MIT
#include "app/CommandLineParser.h"

#include <QStringList>

namespace TES {

CommandLineParser::ArgumentMap CommandLineParser::Parse(int argc, char **argv)
{
    // First pass: an argument that does not start with "-" continues the current token.
    QStringList tokens;
    QString current;
    for (int index = 0; index < argc; ++index) {
        char const *argument = argv[index];
        if (!argument)
            continue;
        if (argument[0] != '-') {
            current += QLatin1Char(' ') + QString::fromLatin1(argument);
        } else {
            if (!current.isEmpty())
                tokens.append(current);
            current = QString::fromUtf8(argument);
        }
    }
    if (!current.isEmpty())
        tokens.append(current);

    ArgumentMap map;
    for (QString const &token : qAsConst(tokens)) {
        if (!token.startsWith(QLatin1Char('-')) || !token.contains(QLatin1Char('=')))
            continue;
        QStringList const parts = token.mid(1).split(QLatin1Char('='), Qt::KeepEmptyParts);
        if (parts.size() != 2)
            continue;
        QString value = parts.at(1);
        if (value.startsWith(QLatin1Char('"')))
            value.remove(0, 1);
        if (value.endsWith(QLatin1Char('"')))
            value.chop(1);
        map.emplace(parts.at(0), value); // emplace keeps the first value of a repeated key
    }
    return map;
}

bool CommandLineParser::Contains(ArgumentMap const &map, QString const &key)
{
    return map.find(key) != map.end();
}

QString CommandLineParser::GetString(ArgumentMap const &map, QString const &key)
{
    return map.at(key);
}

} // namespace TES
