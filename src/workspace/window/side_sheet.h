#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QList>
#include <QPushButton>
#include <QString>

namespace corvane {

/// A dialog that stays open beside the main window, which can be used meanwhile: the window's shortcuts work in it too.
/// Escape closes it.
class SideSheet : public QDialog {
    Q_OBJECT
public:
    /// The half of the window that it first opens over, so that the other can be watched.
    enum class Place { settings, edit };

    /// F1 asks for the topic of the manual.
    SideSheet(const QString& title, Place place, QString helpTopic, QWidget* parent);

signals:
    void helpWanted(const QString& topic);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    /// Shows the sheet in front and gives `first` the focus.
    void present(QWidget& first);
    /// Sets the size that the sheet opens with, in digits and lines of text, but no larger than its window.
    void setFirstSize(int digits, int lines);
    QVBoxLayout& column() { return *column_; }
    /// Adds the row of buttons at the bottom, of which the last closes the sheet.
    void addButtons(const QList<QPushButton*>& buttons);

private:
    void moveToPlace();

    Place place_;
    QString helpTopic_;
    QVBoxLayout* column_;
};

} // namespace corvane
