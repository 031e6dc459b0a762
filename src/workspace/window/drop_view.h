#pragma once

#include "intake/xml_inbox.h"

#include <QFrame>
#include <QLabel>

namespace corvane {

/// The area onto which projects are dragged from Final Cut or a file manager. It is highlighted while a project hovers
/// over it; what is dropped goes into the inbox. A click, Space or Return opens the file chooser instead.
class ProjectDropView : public QFrame {
    Q_OBJECT
public:
    explicit ProjectDropView(XMLInbox& inbox, QWidget* parent = nullptr);

    [[nodiscard]] bool dropActive() const { return dropActive_; }

signals:
    void clicked();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void hover(QDragMoveEvent& event);
    void setDropActive(bool active);

    XMLInbox& inbox_;
    QLabel* hint_;
    bool dropActive_ = false;
};

/// The part of the empty window with the drop view.
class FinalCutProjectDropZone : public QWidget {
    Q_OBJECT
public:
    explicit FinalCutProjectDropZone(XMLInbox& inbox, QWidget* parent = nullptr);

signals:
    void clicked();
};

} // namespace corvane
