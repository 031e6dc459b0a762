#pragma once

#include "platform/dialogs.h"
#include "platform/user_defaults.h"
#include "workspace/window/name_icons.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QPointer>
#include <QWidget>

namespace corvane {

/// The window's own file choosers. They open in the folder of the last project or the last export, which the user
/// defaults remember.
class FileDialogs : public Dialogs {
public:
    explicit FileDialogs(UserDefaults& defaults) : defaults_(defaults) {}

    /// Sets the window over which they open.
    void setParent(QWidget* parent) { parent_ = parent; }

    [[nodiscard]] std::optional<std::string> chooseProject(const std::string& message) override;
    [[nodiscard]] std::optional<std::string> chooseFolder(
        const std::string& prompt, const std::string& message, const std::string& firstFolder) override;
    void rememberProject(const std::string& location) override;
    void rememberFolder(const std::string& folder) override;
    [[nodiscard]] std::optional<std::string> chooseNewFile(
        const std::string& title, const std::string& message, const std::string& name) override;
    void rememberNewFile(const std::string& path) override;

private:
    void prepare(QFileDialog& dialog);
    [[nodiscard]] static std::optional<std::string> ask(
        QFileDialog& dialog, const QString& title, const std::string& message);
    [[nodiscard]] QString lastFolder(const std::string& key, const std::string& otherwise) const;
    void remember(const std::string& key, const QString& folder);

    UserDefaults& defaults_;
    NameIcons icons_;
    QPointer<QWidget> parent_;
};

/// A file chooser that shows a .fcpxmld folder as one item, which a double click, Return or the Open button chooses.
class ProjectFileDialog : public QFileDialog {
    Q_OBJECT
public:
    explicit ProjectFileDialog(QWidget* parent);

protected:
    void accept() override;

private:
    void enter(QAbstractItemView& list, const QModelIndex& item);
};

} // namespace corvane
