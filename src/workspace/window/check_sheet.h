#pragma once

#include "workspace/content_view.h"

#include <QDialog>
#include <QPlainTextEdit>

namespace corvane {

/// All that is known of the loaded project before it is cut, to read and to copy.
class CheckSheet : public QDialog {
    Q_OBJECT
public:
    explicit CheckSheet(const ContentView& view, QWidget* parent = nullptr);

    /// Opens with what is true now.
    void present();

private:
    void copy() const;

    const ContentView& view_;
    QPlainTextEdit* text_;
    std::string plain_; ///< as it is copied: without the marks
};

} // namespace corvane
