#pragma once

#include "platform/pasteboard.h"

#include <QMimeData>

namespace corvane {

/// What a drag over a window carries, as a pasteboard. `data` must outlive it.
class MimePasteboard : public Pasteboard {
public:
    explicit MimePasteboard(const QMimeData& data) : data_(data) {}

    [[nodiscard]] std::vector<std::string> types() const override;
    [[nodiscard]] std::optional<std::string> data(const std::string& type) const override;
    [[nodiscard]] std::vector<std::string> fileURLs() const override;

    /// All locations: paths of files, and the whole URL of anything else.
    [[nodiscard]] std::vector<std::string> locations() const;

private:
    const QMimeData& data_;
};

} // namespace corvane
