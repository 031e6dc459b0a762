#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace corvane {

/// org.freedesktop.Application: how a desktop activates a program that is there already, or starts it.
class ApplicationBusObject : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    using QObject::QObject;

    std::function<void(const QStringList& uris)> opened; ///< without any for a bare activation

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameters, const QVariantMap& platformData);
};

} // namespace corvane
