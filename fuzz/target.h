#pragma once

#include <string>
#include <string_view>

/// One input of a fuzz target. Returns what is promised and did not hold, empty when all did. Refusals are answers:
/// only FinalCutImportError and PlatformError may leave it, and they do no harm.
std::string runFuzzInput(std::string_view bytes);
