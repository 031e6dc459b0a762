#pragma once

#include <QStyledItemDelegate>

namespace corvane {

/// Draws the items of a list or column of names so that they can be distinguished.
class NameDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// The role of the model's data about where a name differs from the others in the list, see NamePlace::telling.
    static constexpr int tellingRole = Qt::UserRole + 100;

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace corvane
