#pragma once

#include "intake/final_cut/pasteboard.h"

#include <QMimeData>
#include <QUrl>
#include <map>
#include <optional>

namespace corvane {

/// The data of a drag over a window, as a pasteboard. `data` must outlive it.
class MimePasteboard : public Pasteboard {
public:
    explicit MimePasteboard(const QMimeData& data) : data_(data) {}

    [[nodiscard]] std::vector<std::string> types() const override;
    [[nodiscard]] std::optional<std::string> data(const std::string& type) const override;
    [[nodiscard]] std::vector<std::string> filePaths() const override;

    /// All locations: paths for files, and complete URLs for anything else. Throws NoPasteboardAnswer.
    [[nodiscard]] std::vector<std::string> locations() const;

private:
    template <class Answer, class Question>
    [[nodiscard]] Answer ask(const Question& question) const;
    [[nodiscard]] const QList<QUrl>& urls() const;

    const QMimeData& data_;
    mutable std::map<std::string, std::string> answers_;
    mutable std::optional<QList<QUrl>> urls_;
    mutable bool silent_ = false;
};

} // namespace corvane
