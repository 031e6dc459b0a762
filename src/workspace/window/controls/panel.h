#pragma once

#include "workspace/content_view.h"

#include <QFrame>
#include <QKeySequence>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane {

/// A titled group of controls that shows a part of the controller's state and writes it through the controller.
class Panel : public QFrame {
    Q_OBJECT
public:
    Panel(const QString& title, ContentView& view, QWidget* parent = nullptr);

    /// Shows what changed. Nothing is written.
    virtual void refresh(const Changes& changes) = 0;

    /// High enough for the texts as they wrap at the width that the panel has: a splitter asks for no more than this.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// The tip of the title names the key that goes to the panel.
    void showKey(const QKeySequence& key);

protected:
    void resizeEvent(QResizeEvent* event) override;

    [[nodiscard]] static bool has(const Changes& changes, Changed what)
    {
        return changes.test(static_cast<std::size_t>(what));
    }
    [[nodiscard]] const EditSettings& settings() const { return view_.state().settings; }
    void edit(const std::function<void(EditSettings&)>& change);

    /// A paragraph that explains.
    QLabel* addHelp(const QString& text);
    /// The title of a group inside the panel.
    QLabel* addHeading(const QString& text);
    QVBoxLayout& column() { return *column_; }

    ContentView& view_;

private:
    QVBoxLayout* column_;
    QLabel* title_;
};

/// A paragraph in the colour of explanations.
[[nodiscard]] QLabel* helpLabel(const QString& text, QWidget* parent);

/// A label over, or beside, the control that it names.
[[nodiscard]] QLabel* labelFor(QWidget& control, const QString& text, QWidget* parent);

} // namespace corvane
