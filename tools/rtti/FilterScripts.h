#pragma once

#include "Arguments.h"
#include "Inspect/translate/ViewerFiles.h"

#include <filesystem>
#include <vector>

/// Writes a script into a directory for each type: it runs this program as a filter process for
/// values of the type, because GTKWave hands no arguments to such a process. Any user of the
/// directory may run them. Throws what cannot be written.
void writeFilterScripts(const std::filesystem::path& folder, const FileArguments& file,
                        const std::vector<Inspect::FilterType>& types);
