// The suite's kernel library, QmxKrn2K.dll, as a module calls it: named strings that all modules share ("kernel
// strings"), and the name of the open design. The development kernel has the same four functions.
//
// Link with lib/libQmxKrn2K.a. It uses the library that is in memory at the first call; it does not load the library.
// Create an instance of the component first, because the component finds and loads the kernel. The folder of your
// program does not matter.
//
// A call raises a structured exception, which ends a program that does not handle it:
//   0xC06D007E  no kernel is loaded in the process
//   0xC06D007F  the kernel lacks the function
//
// All texts are zero-terminated, in the system's ANSI code page. Keys are compared byte by byte. Addresses are signed
// 32-bit numbers; 0 and negative numbers mean "none". Do not link with /LARGEADDRESSAWARE, because valid addresses must
// be below 2 GB.
//
// Each kernel has its own rules for threads. The component calls the kernel only from its home thread, the thread that
// created the first instance. A module that calls from the same thread is safe with every kernel. The development
// kernel accepts calls from any thread.
#pragma once

#ifdef _WIN64
#error "QmxKrn2K.dll is a 32-bit library: build a 32-bit program"
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// Stores `value` under `key` for all modules. A new value replaces the old one as a whole. The kernel may rewrite the
/// buffer of `value` in place, within its length, so pass a copy. Do not rely on the result. The development kernel
/// returns 0 if it cannot store the value (null pointer, no memory, 10 seconds without the lock), else 1. No function
/// removes a key; store "" instead.
long __stdcall E_SetString(const char* key, char* value);

/// The address of the text under `key`, or a number <= 0 if there is none. Copy the text at once, because the address
/// is valid only until the same thread asks for the same key again or ends. Never write to the text.
long __stdcall E_GetString(const char* key);

/// The handle of the open design database, for O_GetName.
long __stdcall DB_DataBase(void);

/// The address of the name of the object `handle`, or 0 if there is none. Copy the text at once, as with E_GetString.
/// The development kernel knows only the handle that DB_DataBase returns. Its name is the text under "DESIGN_NAME".
long __stdcall O_GetName(long handle);

#ifdef __cplusplus
}
#endif
