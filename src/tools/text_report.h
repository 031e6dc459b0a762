#pragma once

#include "export/export_files.h"
#include "tools/loaded_file.h"

#include <iosfwd>
#include <vector>

/// The facts for people, in plain text. Names are printed as the window would draw them: a terminal obeys controls too.
namespace corvane {

/// The project, and for each angle how much of it has video and sound.
void printProject(std::ostream& out, const LoadedFile& file);
/// What can be cut, what an export will refuse, and what else is to be known; nothing when there is nothing to say.
void printCheck(std::ostream& out, const LoadedFile& file, const ProjectCheck& check);
/// Screen time and share of each camera beside the share that the settings aim at.
void printUsage(std::ostream& out, const LoadedFile& file, const std::vector<Cut>& cuts);
void printCarryOver(std::ostream& out, const CutEngine& engine);
void printFiles(std::ostream& out, const ExportFiles& files);

} // namespace corvane
