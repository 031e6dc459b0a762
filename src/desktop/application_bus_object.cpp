#include "desktop/application_bus_object.h"

namespace corvane {

void ApplicationBusObject::Activate(const QVariantMap&)
{
    opened({});
}

void ApplicationBusObject::Open(const QStringList& uris, const QVariantMap&)
{
    opened(uris);
}

/// The desktop file names no actions.
void ApplicationBusObject::ActivateAction(const QString&, const QVariantList&, const QVariantMap&)
{
    opened({});
}

} // namespace corvane
