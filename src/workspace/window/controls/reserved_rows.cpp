#include "workspace/window/controls/reserved_rows.h"

#include "workspace/window/controls/into_view.h"
#include "workspace/window/tab_order.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <memory>
#include <utility>

namespace corvane {

namespace {

void discard(QWidget& row)
{
    row.hide();
    row.deleteLater(); // deleted later, because its own button may have been clicked
}

} // namespace

ReservedRows::ReservedRows(Make make, QWidget* parent)
    : QWidget(parent), make_(std::move(make)), column_(new QVBoxLayout(this))
{
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(8); // like panels
}

void ReservedRows::setKeys(const std::vector<std::string>& keys)
{
    if (keys == keys_)
        return;
    std::multimap<std::string, QWidget*> before;
    for (const auto& [position, row] : rows_)
        before.emplace(keys_[static_cast<std::size_t>(position)], row);
    rows_.clear();
    asked_.clear();
    keys_ = keys;
    for (int position = 0; position < count(); ++position) {
        if (const auto row = before.extract(keys_[static_cast<std::size_t>(position)]))
            rows_.emplace(position, row.mapped());
    }
    arranged_ = false;
    settle();
    for (const auto& [key, row] : before)
        discard(*row);
}

QWidget* ReservedRows::row(int position)
{
    asked_.insert(position);
    settle();
    return rows_.at(position);
}

bool ReservedRows::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) // for example after a change of the font
        settle();
    return handled;
}

void ReservedRows::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (area_ == nullptr) {
        area_ = scrollAreaOf(*this); // by now it is in its final scroll area
        connect(area_->verticalScrollBar(), &QScrollBar::valueChanged, this, &ReservedRows::settle);
        connect(area_->verticalScrollBar(), &QScrollBar::rangeChanged, this, &ReservedRows::settle);
    }
    settle();
}

void ReservedRows::settle()
{
    if (settling_) // otherwise focus that leaves a row would scroll the area
        return;
    const QScopedValueRollback guard(settling_, true);
    const std::set<int> wanted = wantedRows();
    for (const int position : wanted) {
        QWidget*& row = rows_[position];
        if (row != nullptr)
            continue;
        row = make_(keys_[static_cast<std::size_t>(position)], this);
        arranged_ = false;
    }
    const int height = rows_.empty() ? 0 : rows_.begin()->second->sizeHint().height();
    arranged_ = std::exchange(rowHeight_, height) == height && arranged_ && rows_.size() == wanted.size();
    if (arranged_)
        return;
    std::vector<QWidget*> far;
    std::erase_if(rows_, [&](const auto& each) {
        if (!wanted.contains(each.first))
            far.push_back(each.second);
        return !wanted.contains(each.first);
    });
    arrange();
    for (QWidget* row : far)
        discard(*row);
}

std::set<int> ReservedRows::wantedRows() const
{
    constexpr int margin = 2; // rows beyond the visible ones
    std::set<int> wanted;
    const auto want = [&](int first, int last) {
        for (int position = std::max(first, 0); position <= std::min(last, count() - 1); ++position)
            wanted.insert(position);
    };
    want(0, 0);
    want(count() - 1, count() - 1);
    const int top = area_ == nullptr ? 0 : mapFrom(area_->viewport(), QPoint()).y();
    const int bottom = top + (area_ == nullptr ? 0 : area_->viewport()->height());
    if (bottom >= 0)
        want(rowAt(top) - margin, rowAt(bottom) + margin);
    for (const auto& [position, row] : rows_) {
        if (row == focusWidget() || row->isAncestorOf(focusWidget()))
            want(position - 1, position + 1);
    }
    for (const int position : asked_)
        want(position, position);
    return wanted;
}

/// The position of the row at this height, or of the nearest row.
int ReservedRows::rowAt(int y) const
{
    return std::clamp(y / std::max(1, rowHeight_ + column_->spacing()), 0, std::max(0, count() - 1));
}

/// Lays out the existing rows at their places, with space for the others between them.
void ReservedRows::arrange()
{
    while (const auto item = std::unique_ptr<QLayoutItem>(column_->takeAt(0))) {
    }
    int next = 0;
    for (const auto& [position, row] : rows_) {
        if (position > next) // the layout adds its own spacing once more
            column_->addSpacing((position - next) * (rowHeight_ + column_->spacing()));
        column_->addWidget(row);
        next = position + 1;
        if (isVisible())
            row->show();
    }
    column_->activate();
    orderTabsByLayout(*this);
    arranged_ = true;
}

} // namespace corvane
