#pragma once

#include "workspace/content_view.h"

#include <QFrame>
#include <QKeySequence>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane {

/// A titled group of controls that shows a part of the controller's state, and changes it through the controller.
class Panel : public QFrame {
    Q_OBJECT
public:
    Panel(const QString& title, ContentView& view, QWidget* parent = nullptr);

    /// Shows what changed. Never writes to the controller.
    virtual void refresh(const Changes& changes) = 0;

    /// High enough for the texts wrapped at the panel's current width, because this is all that a splitter considers.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// F1 anywhere in the panel asks for this topic of the manual.
    void setHelpTopic(const QString& topic) { helpTopic_ = topic; }

    /// The tip of the title names the key that goes to the panel.
    void showKey(const QKeySequence& key);

signals:
    void helpWanted(const QString& topic);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    [[nodiscard]] static bool has(const Changes& changes, Changed what)
    {
        return changes.test(static_cast<std::size_t>(what));
    }
    [[nodiscard]] const EditSettings& settings() const { return view_.state().settings; }
    void edit(const std::function<void(EditSettings&)>& change);

    /// Adds an explanatory paragraph.
    QLabel* addHelp(const QString& text);
    /// Adds the title of a group inside the panel.
    QLabel* addHeading(const QString& text);
    QVBoxLayout& column() { return *column_; }

    ContentView& view_;

private:
    QVBoxLayout* column_;
    QLabel* title_;
    QString helpTopic_;
};

/// An explanatory paragraph, in the colour for explanations.
[[nodiscard]] QLabel* helpLabel(const QString& text, QWidget* parent);

/// The label of a control, to be placed above or beside it.
[[nodiscard]] QLabel* labelFor(QWidget& control, const QString& text, QWidget* parent);

} // namespace corvane
