#include "desktop/application_bus_object.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

namespace corvane {

void ApplicationBusObject::Activate(const QVariantMap&)
{
    open({});
}

void ApplicationBusObject::Open(const QStringList& uris, const QVariantMap&)
{
    open(uris);
}

/// The desktop file has no actions, so this only activates the window.
void ApplicationBusObject::ActivateAction(const QString&, const QVariantList&, const QVariantMap&)
{
    open({});
}

void ApplicationBusObject::open(const QStringList& uris)
{
    if (!senderHasGone())
        opened(uris);
}

/// A sender that wants no reply may leave at once. If the bus does not answer, the sender is assumed to be there.
bool ApplicationBusObject::senderHasGone() const
{
    if (!calledFromDBus() || !message().isReplyRequired())
        return false;
    const QDBusReply<bool> there = connection().interface()->isServiceRegistered(message().service());
    return there.isValid() && !there.value();
}

} // namespace corvane
