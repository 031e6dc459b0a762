#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace corvane {

/// org.freedesktop.Application: how a desktop activates a program that is already running, or starts it. A call does
/// nothing if its sender has given up waiting and gone.
class ApplicationBusObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    using QObject::QObject;

    std::function<void(const QStringList& uris)> opened; ///< with an empty list for an activation without files

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameters, const QVariantMap& platformData);

private:
    void open(const QStringList& uris);
    [[nodiscard]] bool senderHasGone() const;
};

} // namespace corvane
