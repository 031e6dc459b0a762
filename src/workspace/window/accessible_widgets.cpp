#include "workspace/window/accessible_widgets.h"

#include "workspace/window/accessible_value.h"
#include "workspace/window/controls/link_label.h"
#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/reserved_rows.h"
#include "workspace/window/drop_view.h"
#include "workspace/window/pictures/accessible_strip.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <map>
#include <memory>

namespace corvane {

namespace {

/// One entry of a picker, which exists only for assistive technology.
class AccessibleEntry : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleEntry(Picker& picker, int position) : picker_(&picker), position_(position) {}

    [[nodiscard]] bool isValid() const override { return picker_ && position_ < picker_->count(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return picker_ ? picker_->window()->windowHandle() : nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(picker_);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? picker_->labelAt(position_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override
    {
        return picker_ ? QRect(picker_->mapToGlobal(QPoint()), picker_->size()) : QRect();
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.invalid = !isValid();
        if (isValid()) {
            state.selected = picker_->currentIndex() == position_;
            state.disabled = !picker_->isEnabled();
        }
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override
    {
        if (action == pressAction() && isValid())
            picker_->choose(position_);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<Picker> picker_;
    int position_;
};

class AccessiblePicker : public QAccessibleWidget, public AccessibleShownText {
public:
    explicit AccessiblePicker(Picker& picker) : QAccessibleWidget(&picker, QAccessible::ComboBox) {}
    ~AccessiblePicker() override
    {
        for (const auto& [position, id] : entries_)
            QAccessible::deleteAccessibleInterface(id);
    }

    using AccessibleShownText::text;
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return chosen();
        return QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        return state;
    }
    [[nodiscard]] int childCount() const override { return picker().count(); }
    [[nodiscard]] QAccessibleInterface* child(int position) const override
    {
        if (position < 0 || position >= childCount())
            return nullptr;
        const auto found = entries_.find(position);
        if (found != entries_.end())
            return QAccessible::accessibleInterface(found->second);
        auto* entry = new AccessibleEntry(picker(), position); // owned by the registry
        entries_.emplace(position, QAccessible::registerAccessibleInterface(entry));
        return entry;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (const auto& [position, id] : entries_) {
            if (QAccessible::accessibleInterface(id) == child)
                return position;
        }
        return -1;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return {showMenuAction(), pressAction(), setFocusAction()};
    }
    void doAction(const QString& action) override
    {
        if ((action == showMenuAction() || action == pressAction()) && picker().isEnabled())
            picker().showPopup();
        else
            QAccessibleWidget::doAction(action);
    }
    [[nodiscard]] QRect characterRect(int) const override { return rect(); }

protected:
    [[nodiscard]] QString shownText() const override { return chosen(); }

private:
    [[nodiscard]] Picker& picker() const { return *qobject_cast<Picker*>(object()); } // always created for a Picker
    [[nodiscard]] QString chosen() const { return picker().labelAt(picker().currentIndex()); }

    mutable std::map<int, QAccessible::Id> entries_;
};

class AccessibleLink : public QAccessibleWidget {
public:
    explicit AccessibleLink(LinkLabel& label) : QAccessibleWidget(&label, QAccessible::Link) {}

    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override
    {
        if (action == pressAction())
            qobject_cast<LinkLabel*>(object())->follow();
        else
            QAccessibleWidget::doAction(action);
    }
};

/// Replaces the toolkit's own, which reports the texts as they are drawn.
class AccessibleAlert : public QAccessibleWidget {
public:
    explicit AccessibleAlert(QMessageBox& box) : QAccessibleWidget(&box, QAccessible::AlertMessage) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const char* const label = kind == QAccessible::Value  ? "qt_msgbox_label"
                                  : kind == QAccessible::Help ? "qt_msgbox_informativelabel"
                                                              : nullptr;
        if (label == nullptr)
            return QAccessibleWidget::text(kind);
        const auto* found = widget()->findChild<QLabel*>(label);
        return found != nullptr ? found->accessibleName() : QString();
    }
};

/// Reports all rows, including those that do not exist yet.
class AccessibleRows : public QAccessibleWidget {
public:
    explicit AccessibleRows(ReservedRows& rows) : QAccessibleWidget(&rows, QAccessible::Grouping) {}

    [[nodiscard]] int childCount() const override { return rows().count(); }
    [[nodiscard]] QAccessibleInterface* child(int position) const override
    {
        const bool exists = position >= 0 && position < childCount();
        return exists ? QAccessible::queryAccessibleInterface(rows().row(position)) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (const auto& [position, row] : rows().rows()) {
            if (child != nullptr && child->object() == row)
                return position;
        }
        return -1;
    }

private:
    [[nodiscard]] ReservedRows& rows() const { return *qobject_cast<ReservedRows*>(object()); }
};

/// The drop view acts as a button.
class AccessibleDropView : public QAccessibleWidget {
public:
    explicit AccessibleDropView(ProjectDropView& view) : QAccessibleWidget(&view, QAccessible::Button) {}

    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override
    {
        if (action == pressAction()) // queued, so that the answer does not wait for the chooser
            QMetaObject::invokeMethod(object(), "clicked", Qt::QueuedConnection);
        else
            QAccessibleWidget::doAction(action);
    }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    if (auto* picker = qobject_cast<Picker*>(object))
        return new AccessiblePicker(*picker);
    if (auto* rows = qobject_cast<ReservedRows*>(object))
        return new AccessibleRows(*rows);
    if (auto* panel = qobject_cast<Panel*>(object))
        return new QAccessibleWidget(panel, QAccessible::Grouping);
    if (auto* box = qobject_cast<QMessageBox*>(object); box != nullptr && box->objectName() == "alert")
        return new AccessibleAlert(*box);
    if (auto* box = qobject_cast<ProjectDropView*>(object))
        return new AccessibleDropView(*box);
    if (auto* strip = qobject_cast<CutStrip*>(object))
        return accessibleStrip(*strip);
    if (auto* link = qobject_cast<LinkLabel*>(object))
        return new AccessibleLink(*link);
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget != nullptr && widget->property("dialog").toBool())
        return new QAccessibleWidget(widget, QAccessible::Dialog);
    if (widget != nullptr && widget->property("picture").toBool())
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    return nullptr;
}

} // namespace

void installAccessibleWidgets()
{
    QAccessible::installFactory(makeAccessible);
}

} // namespace corvane
