#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace corvane {

/// Where people keep files, other than in their home folder itself: Desktop, Documents and Downloads, and mounted USB
/// sticks, disks and network shares. Only what exists.
[[nodiscard]] QList<QUrl> usualPlaces();

/// True if this mount point is a USB stick, a disk or a network share; false if it is part of the system. `home` is the
/// user's home folder.
[[nodiscard]] bool isMountForPeople(const QString& mountPoint, const QString& home);

} // namespace corvane
