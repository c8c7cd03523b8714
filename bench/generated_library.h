// The generated material library of the conversion benchmarks: layered materials of three layers
// each (diffuse, glossy, glass), each layer with a bitmap texture.
#pragma once

#include <filesystem>

// Saves a library of `materialCount` such materials; false when it does not save.
bool writeGeneratedLibrary(const std::filesystem::path& path, int materialCount);
