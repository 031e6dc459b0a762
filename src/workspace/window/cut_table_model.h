#pragma once

#include "workspace/shot_facts.h"
#include "workspace/window/camera_marks.h"

#include <QAbstractTableModel>
#include <map>
#include <string>

namespace corvane {

/// The controller's cut list as a table; cells are only computed when they are shown.
class CutTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { start, camera, duration, columns };

    explicit CutTableModel(const ContentView& view, QObject* parent = nullptr);

    /// Replaces the table's contents with the controller's cut list.
    void show(const CameraMarks& marks);

    /// The project frame at which the cut in this row starts.
    [[nodiscard]] Frames startOf(int row) const { return shown_->cuts[static_cast<std::size_t>(row)].start; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// How a camera is shown in each of its rows, and how it is read aloud.
    struct Look {
        QString label;
        QString spoken;
        QIcon chip;
        qsizetype telling = 0; ///< see NamePlace::telling
    };

    [[nodiscard]] Look lookOf(const Cut& cut) const;
    [[nodiscard]] QString text(const Cut& cut, int column) const;
    [[nodiscard]] QString facts(std::size_t row) const;
    [[nodiscard]] bool isShort(int row) const;

    const ContentView& view_;
    SharedRevision shown_;
    EditReasons reasons_;
    std::vector<std::size_t> short_;
    std::map<std::string, Look, std::less<>> looks_;
};

} // namespace corvane
