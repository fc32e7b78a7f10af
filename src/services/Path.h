// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TES {

// A "/"-separated name that always begins with "/" when valid; the root is "/". A text
// that doesn't begin with "/" is replaced by the root, not repaired. The host itself has
// no use for it: it is there for plug-ins.
class TES_EXPORT Path
{
public:
    Path();
    Path(QString const &text);
    Path(char const *text);
    Path(Path const &other);
    Path &operator=(Path const &other);
    ~Path();

    void set(QString const &text);
    QString get() const;

    bool operator==(Path const &other) const;
    bool operator<(Path const &other) const;

    // The last element; "/" for the root.
    QString name() const;
    // The elements between the separators, empty ones skipped.
    QStringList elements() const;
    Path parent() const;
    bool isValid() const;
    // Whether other lies exactly one level below this path.
    bool isChild(Path const &other) const;
    // Whether other lies any number of levels below this path.
    bool isDescendent(Path const &other) const;
    bool isRoot() const;
    // The text in Latin-1, valid until the path changes or dies.
    char const *asChar() const;

private:
    bool _below(Path const &other, bool exactlyOneLevel) const;

    QString _path;
    mutable QByteArray _latin1;
};

} // namespace TES
