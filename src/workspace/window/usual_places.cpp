#include "workspace/window/usual_places.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>
#include <array>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

namespace corvane {

namespace {

bool isAtOrIn(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder + "/");
}

QStringList mounts(const QString& home)
{
    QStringList found;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isReady() && volume.fileSystemType() != "tmpfs" && isMountForPeople(volume.rootPath(), home))
            found << volume.rootPath();
    }
    // Network shares that the desktop's file manager has mounted are folders inside a folder of its own.
    const QDir shares(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/gvfs");
    for (const QFileInfo& share : shares.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        found << share.absoluteFilePath();
    return found;
}

/// The mounts, found on another thread, or none if one does not answer in time: a share whose server has gone may never
/// answer.
QStringList mountsThatAnswer(const QString& home)
{
    constexpr auto patience = std::chrono::milliseconds(500);
    const auto answer = std::make_shared<std::promise<QStringList>>();
    auto found = answer->get_future();
    std::thread([answer, home] { answer->set_value(mounts(home)); }).detach();
    return found.wait_for(patience) == std::future_status::ready ? found.get() : QStringList();
}

} // namespace

bool isMountForPeople(const QString& mountPoint, const QString& home)
{
    if (mountPoint == "/" || isAtOrIn(home, mountPoint))
        return false;
    if (isAtOrIn(mountPoint, "/run/media"))
        return true;
    constexpr std::array ofTheSystem = {"/bin",  "/boot", "/dev",  "/efi", "/etc",     "/lib", "/nix", "/opt",
                                        "/proc", "/run",  "/snap", "/sys", "/sysroot", "/tmp", "/usr", "/var"};
    return std::ranges::none_of(
        ofTheSystem, [&mountPoint](const char* folder) { return isAtOrIn(mountPoint, folder); });
}

QList<QUrl> usualPlaces()
{
    QStringList paths;
    for (const auto place :
         {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation})
        paths << QStandardPaths::writableLocation(place);
    paths << mountsThatAnswer(QDir::homePath());
    paths.removeDuplicates();
    QList<QUrl> places;
    for (const QString& path : paths) {
        // A folder that the account does not have is reported as the home folder, which choosers already have.
        if (path != QDir::homePath() && QFileInfo(path).isDir())
            places << QUrl::fromLocalFile(path);
    }
    return places;
}

} // namespace corvane
