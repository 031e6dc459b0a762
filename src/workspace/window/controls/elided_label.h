#pragma once

#include <QLabel>

namespace corvane {

/// A line of text that ends in "…" where it does not fit; the whole then stands in the tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(const QString& text = {}, QWidget* parent = nullptr);

    /// What the tooltip says beside the text, also while that fits.
    void setFacts(const QString& facts);
    [[nodiscard]] bool isElided() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString shownText(int width) const;

    QString facts_;
};

} // namespace corvane
