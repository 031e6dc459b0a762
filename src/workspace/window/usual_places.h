#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace corvane {

/// Where people keep files beside their home folder: Desktop, Documents and Downloads, and the sticks, disks and shares
/// that are mounted. Only what exists.
[[nodiscard]] QList<QUrl> usualPlaces();

/// True for a stick, a disk or a share at this mount point; false for a part of the system itself. `home` is the home
/// folder of the user.
[[nodiscard]] bool isMountForPeople(const QString& mountPoint, const QString& home);

} // namespace corvane
