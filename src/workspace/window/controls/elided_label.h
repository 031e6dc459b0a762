#pragma once

#include "workspace/window/elision.h"

#include <QLabel>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// A line of text that, if it does not fit, ends in "…" or has it in the middle of a name. The tooltip then shows the
/// whole text.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(const QString& text = {}, QWidget* parent = nullptr);

    /// Sets the lines that the tooltip shows below the text, even if the text fits.
    void setFacts(std::vector<std::string> lines);
    /// Sets which part of the text is a name.
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
