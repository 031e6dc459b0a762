#pragma once

#include "help/product.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace corvane {

/// Says what the program is, who makes it and where to find them.
class CorvaneAboutView : public QWidget {
    Q_OBJECT
public:
    CorvaneAboutView(
        const product::BundleInfo& bundle, const std::function<void()>& openManual, const std::function<void()>& close,
        QWidget* parent = nullptr);
};

/// The About window that the menu opens: created when it is first needed, then kept.
class CorvaneAboutWindow {
public:
    CorvaneAboutWindow(product::BundleInfo bundle, std::function<void()> openManual)
        : bundle_(std::move(bundle)), openManual_(std::move(openManual))
    {
    }

    /// Shows the window in front of the others.
    void show();

private:
    product::BundleInfo bundle_;
    std::function<void()> openManual_;
    std::unique_ptr<QWidget> window_;
};

} // namespace corvane
