#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

#include <QString>

namespace TES {

// A screen was renamed; name() is the old name, the new one is the screen's own.
class TES_EXPORT ScreenRenamedEvent : public ScreenGenericEvent
{
public:
    ScreenRenamedEvent(QUuid const &screen, int index, QString const &name);
    ~ScreenRenamedEvent() override;

    QString name() const;

private:
    QString _name;
};

} // namespace TES
