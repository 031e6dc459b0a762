#pragma once

#include <QCheckBox>

namespace corvane {

/// A check box labelled with a name. A name that does not fit is painted shortened, so that it can still be
/// distinguished from others.
class ElidedCheckBox : public QCheckBox {
    Q_OBJECT
public:
    explicit ElidedCheckBox(QWidget* parent = nullptr);

    /// Where the name differs from others, see NamePlace::telling.
    void setTelling(qsizetype place) { telling_ = place; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    qsizetype telling_ = 0;
};

} // namespace corvane
