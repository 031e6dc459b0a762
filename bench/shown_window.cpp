#include "bench/shown_window.h"

#include "workspace/window/theme.h"

#include <QApplication>
#include <memory>

namespace corvane::bench {

namespace {

std::unique_ptr<QApplication>& toolkit()
{
    static std::unique_ptr<QApplication> application;
    return application;
}

} // namespace

void startToolkit()
{
    if (toolkit())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static std::string name = "corvane_bench";
    static char* arguments = name.data();
    toolkit() = std::make_unique<QApplication>(count, &arguments);
    theme::apply(*toolkit());
}

void endToolkit()
{
    toolkit().reset();
}

ShownWindow::ShownWindow(const std::string& folder)
    : session_(folder),
      resources_({CORVANE_RESOURCES}),
      window_(
          {session_.view(),
           session_.inbox(),
           session_.defaults(),
           resources_,
           updater_,
           busy_,
           [](const std::string&) {},
           {}})
{
    window_.show();
}

void ShownWindow::paint()
{
    QCoreApplication::processEvents();
}

} // namespace corvane::bench
