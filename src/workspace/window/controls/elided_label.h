#pragma once

#include "workspace/window/elision.h"

#include <QLabel>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// A line of text that ends in "…" where it does not fit, or has it in the middle of a name; the whole then stands in
/// the tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(const QString& text = {}, QWidget* parent = nullptr);

    /// What the tooltip says below the text, line by line, also while that fits.
    void setFacts(std::vector<std::string> lines);
    /// What of the text is a name.
    void setName(const NamePlace& name);
    [[nodiscard]] bool isElided() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString shownText(int width) const;

    std::vector<std::string> facts_;
    std::optional<NamePlace> name_;
};

} // namespace corvane
