#pragma once

#include <string>
#include <string_view>

/// Runs one input of a fuzz target. Returns the promise that was broken; empty if none was. Only FinalCutImportError
/// and PlatformError may be thrown, which are refusals and count as success.
std::string runFuzzInput(std::string_view bytes);
