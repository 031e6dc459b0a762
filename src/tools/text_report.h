#pragma once

#include "export/export_files.h"
#include "tools/loaded_file.h"

#include <iosfwd>
#include <vector>

/// Reports in plain text for people. Names are printed as the window would draw them, because terminals interpret
/// control characters.
namespace corvane {

/// Prints the project, and how much of each angle has video and audio.
void printProject(std::ostream& out, const LoadedFile& file);
/// Prints what can be cut, what an export will refuse, and other notes; nothing if there is nothing to say.
void printCheck(std::ostream& out, const LoadedFile& file, const ProjectCheck& check);
/// Prints in one line what these settings give when many edits are generated. Takes up to a fifth of a second.
void printTrial(std::ostream& out, const LoadedFile& file);
/// Prints each camera's screen time and share beside its target share.
void printUsage(std::ostream& out, const LoadedFile& file, const std::vector<Cut>& cuts);
void printCarryOver(std::ostream& out, const CutEngine& engine);
void printFiles(std::ostream& out, const ExportFiles& files);

} // namespace corvane
