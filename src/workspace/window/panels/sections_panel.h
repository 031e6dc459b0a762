#pragma once

#include "workspace/window/controls/panel.h"
#include "workspace/window/controls/picker.h"
#include "workspace/window/controls/reserved_rows.h"
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
    struct Row;

    Row* makeRow(const std::string& key, QWidget* parent);
    void connectRow(const Row& row);
    void showRow(const Row& row, const SectionDraft& draft);
    /// Changes the section with this id, wherever in the list it is now.
    void editDraft(const Identifier& id, const std::function<void(SectionDraft&)>& change);

    QPushButton* add_;
    std::vector<Picker::Entry> cameras_;
    ReservedRows* rows_; ///< the keys are the sections' ids
};

} // namespace corvane
