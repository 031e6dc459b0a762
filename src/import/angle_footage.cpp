#include "import/angle_footage.h"

#include "import/final_cut_import_error.h"

namespace corvane {

void AngleFootage::begin(xml::Element angle)
{
    if (refused_)
        return;
    const std::string_view id = angle.attribute("angleID").value_or("");
    angleName_ = angle.attribute("name").value_or(id);
    angles_.push_back({id, {}, nullptr});
}

void AngleFootage::add(xml::Element child)
{
    if (refused_)
        return;
    Angle& angle = angles_.back();
    try {
        const auto& spans = walker_.walk(child, angleName_);
        angle.spans.insert(angle.spans.end(), spans.begin(), spans.end());
    } catch (const FinalCutImportError&) {
        angle.refusal = std::current_exception();
        refused_ = true;
    }
}

} // namespace corvane
