/* Export and import of the drawing DLL's interface (C and C++). */
#pragma once

#if defined(DRAWTOOL_BUILDING_DLL)
#define DRAWTOOL_API __declspec(dllexport)
#else
#define DRAWTOOL_API __declspec(dllimport)
#endif
