// Writing the gallery's pages: a 32-bit DIB as PNG (Windows Imaging
// Component) and an enhanced metafile recorded through a callback.
#pragma once

#include <windows.h>

#include <functional>

/// Writes `height` top-down rows of 32-bit BGRX pixels as a PNG file.
bool WritePng(const wchar_t* path, const void* pixels, int width, int height);

/// Records `draw` on an enhanced-metafile DC and saves it as `path`.
bool WriteEmf(const char* path, int width, int height, const std::function<void(HDC)>& draw);
