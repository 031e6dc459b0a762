#pragma once

#include "platform/dialogs.h"
#include "platform/user_defaults.h"
#include "workspace/window/name_icons.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QPointer>
#include <QWidget>

namespace corvane {

/// The window's own choosers. They open beside the project that was loaded last and in the folder that took the last
/// export, which the user defaults remember.
class FileDialogs : public Dialogs {
public:
    explicit FileDialogs(UserDefaults& defaults) : defaults_(defaults) {}

    /// The window over which they open from now on.
    void setParent(QWidget* parent) { parent_ = parent; }

    [[nodiscard]] std::optional<std::string> chooseProject(const std::string& message) override;
    [[nodiscard]] std::optional<std::string> chooseFolder(
        const std::string& prompt, const std::string& message, const std::string& firstFolder) override;
    void rememberProject(const std::string& location) override;
    void rememberFolder(const std::string& folder) override;

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

/// A file chooser in which a .fcpxmld folder is one item: a double click, Return and the Open button choose it.
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
