// Version numbers of this module and names from the host executable's
// version block.
#pragma once

#include <windows.h>

#include "AfxString.h"

/// The file version of the module the library is linked into (through
/// AfxGetResourceHandle, so a host may point it at another module), from the
/// fixed record of version resource 1: parts[0..3] = major, minor, build,
/// revision, each a 16-bit value (version 2.5.1.7 gives 2, 5, 1, 7).
/// The parts are zeroed first. Returns 1 when the record was found, else 0:
/// no resource module, no version resource, a resource of exactly 51 bytes,
/// or no signature 0xFEEF04BD within the first (size - 51) 32-bit words of
/// the resource (a bound in words against a size in bytes, kept as it is; the
/// scan never reads past the resource, and a record cut off by its end is
/// not found either).
int GetFileVersionParts(DWORD (&parts)[4]);

/// As GetFileVersionParts, for the product version of the same record.
int GetProductVersionParts(DWORD (&parts)[4]);

/// The "LegalCopyright" text of the host executable (the program that
/// started the process, not this module), in the language and code page of
/// the block's first "\VarFileInfo\Translation" pair. The text is emptied
/// first. Returns 1 when the entry was found, else 0: an executable path of
/// 256 characters or more, no version block, no translation entry, or no
/// such text in that language.
int GetAppLegalNotice(CString& text);

/// As GetAppLegalNotice, for the "ProductName" text.
int GetAppProductName(CString& text);
