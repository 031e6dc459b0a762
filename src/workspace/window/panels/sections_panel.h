#pragma once

#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/timecode_field.h"

#include <QLineEdit>
#include <QPushButton>
#include <vector>

namespace corvane {

/// "Fixed camera sections".
class SectionsPanel : public Panel {
    Q_OBJECT
public:
    explicit SectionsPanel(ContentView& view, QWidget* parent = nullptr);
    void refresh(const Changes& changes) override;

private:
    struct Row {
        Identifier id;
        QFrame* holder;
        QLineEdit* name;
        Picker* camera;
        TimecodeField* start;
        TimecodeField* end;
        QPushButton* remove;
    };

    Row makeRow(const SectionDraft& draft);
    void connectRow(const Row& row);
    void matchRows();
    void showRow(const Row& row, const SectionDraft& draft, const std::vector<Picker::Entry>& cameras);
    /// Changes the draft with this id, wherever in the list it is by then.
    void editDraft(const Identifier& id, const std::function<void(SectionDraft&)>& change);

    QPushButton* add_;
    QVBoxLayout* rowsColumn_;
    std::vector<Row> rows_;
};

} // namespace corvane
