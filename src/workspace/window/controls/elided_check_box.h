#pragma once

#include <QCheckBox>

namespace corvane {

/// A tick box at a name. Where the name does not fit it is cut in painting, so that it can be told from others.
class ElidedCheckBox : public QCheckBox {
    Q_OBJECT
public:
    explicit ElidedCheckBox(QWidget* parent = nullptr);

    /// Where the name differs from others, as NamePlace::telling.
    void setTelling(qsizetype place) { telling_ = place; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    qsizetype telling_ = 0;
};

} // namespace corvane
