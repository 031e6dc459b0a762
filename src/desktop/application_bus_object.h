#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace corvane {

/// org.freedesktop.Application: how a desktop activates a program that is there already, or starts it.
/// A call whose sender has given up waiting for the answer and gone does nothing any more.
class ApplicationBusObject : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    using QObject::QObject;

    std::function<void(const QStringList& uris)> opened; ///< without any for a bare activation

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameters, const QVariantMap& platformData);

private:
    void open(const QStringList& uris);
    [[nodiscard]] bool senderHasGone() const;
};

} // namespace corvane
