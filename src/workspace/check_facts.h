#pragma once

#include "analysis/project_check.h"
#include "workspace/content_view.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What the window says about the loaded project before anything is cut. What depends only on the document is
/// determined once.
class CheckedProject {
public:
    /// Looks again at what has changed since; call it with every change of the project and of the settings.
    void refresh(const ContentView& view, std::string_view decimalSign = ".");

    /// All empty without a project.
    [[nodiscard]] const ProjectCheck& check() const { return check_; }
    /// True when there are notes, or may be with another audio angle: their place is kept.
    [[nodiscard]] bool mayHaveNotes() const { return mayHaveNotes_; }
    /// "Usable: 10 ranges, 66 % of the project; the longest …", and what a better audio would give; empty for a project
    /// that can be cut as a whole.
    [[nodiscard]] std::string usableText() const;
    /// What is to be done or known; of many the first and how many more there are.
    [[nodiscard]] std::vector<std::string> notes() const;

private:
    std::shared_ptr<const LoadedDocument> loaded_;
    EditSettings settings_;
    ProjectCheck check_;
    bool hasFades_ = false; ///< of the audio angle: otherwise no setting leads to advice
    bool mayHaveNotes_ = false;
};

/// All that is known of the loaded project before it is cut; empty without one.
[[nodiscard]] std::string projectCheckText(const ContentView& view, std::string_view decimalSign = ".");

} // namespace corvane
