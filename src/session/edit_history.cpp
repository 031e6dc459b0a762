#include "session/edit_history.h"

#include <algorithm>

namespace corvane {

void EditHistory::append(SharedRevision revision)
{
    const auto count = static_cast<std::int64_t>(items.size());
    const std::int64_t kept = std::clamp<std::int64_t>(index, -1, count - 1) + 1;
    items.resize(static_cast<std::size_t>(kept));
    items.push_back(std::move(revision));
    index = kept;
}

SharedRevision EditHistory::currentRevision() const
{
    return has(index) ? items[static_cast<std::size_t>(index)] : nullptr;
}

bool EditHistory::has(std::int64_t position) const
{
    return position >= 0 && position < static_cast<std::int64_t>(items.size());
}

} // namespace corvane
