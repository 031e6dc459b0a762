#pragma once

#include <QStyledItemDelegate>

namespace corvane {

/// Draws the items of a list or a column whose texts are names, so that they can be told apart.
class NameDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// What the model tells of a name: where it differs from the others of the list, as NamePlace::telling.
    static constexpr int tellingRole = Qt::UserRole + 100;

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace corvane
