// SPDX-License-Identifier: MIT
#include "services/Path.h"

namespace TES {

namespace {
QString const Root = QStringLiteral("/");
}

Path::Path() : _path(Root) {}

Path::Path(QString const &text)
{
    set(text);
}

Path::Path(char const *text)
{
    set(QString::fromUtf8(text));
}

Path::Path(Path const &other) = default;

Path &Path::operator=(Path const &other) = default;

Path::~Path() = default;

void Path::set(QString const &text)
{
    _path = text.startsWith(QLatin1Char('/')) ? text : Root;
}

QString Path::get() const
{
    return _path;
}

bool Path::operator==(Path const &other) const
{
    return _path == other._path;
}

bool Path::operator<(Path const &other) const
{
    return _path < other._path;
}

QString Path::name() const
{
    QStringList const parts = elements();
    return parts.isEmpty() ? Root : parts.last();
}

QStringList Path::elements() const
{
    return _path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

Path Path::parent() const
{
    if (!isValid())
        return Path(QString());
    if (isRoot())
        return Path();
    QStringList parts = elements();
    if (!parts.isEmpty())
        parts.removeLast();
    return Path(Root + parts.join(QLatin1Char('/')));
}

bool Path::isValid() const
{
    return !_path.isEmpty() && _path.startsWith(QLatin1Char('/'));
}

bool Path::isChild(Path const &other) const
{
    return _below(other, true);
}

bool Path::isDescendent(Path const &other) const
{
    return _below(other, false);
}

bool Path::_below(Path const &other, bool exactlyOneLevel) const
{
    QStringList const mine = elements();
    QStringList const theirs = other.elements();
    if (exactlyOneLevel ? theirs.size() != mine.size() + 1 : theirs.size() <= mine.size())
        return false;
    for (int index = 0; index < mine.size(); ++index) {
        if (mine.at(index) != theirs.at(index))
            return false;
    }
    return true;
}

bool Path::isRoot() const
{
    return _path == Root;
}

char const *Path::asChar() const
{
    _latin1 = _path.toLatin1();
    return _latin1.constData();
}

} // namespace TES
