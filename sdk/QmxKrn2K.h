// Declares the functions of the suite's kernel library, QmxKrn2K.dll, for modules. The library stores named strings
// that all modules share ("kernel strings"), and the name of the open design. The development kernel has the same four
// functions.
//
// Link with lib/libQmxKrn2K.a. The functions in that file call the kernel that is loaded at their first call. They do
// not load the kernel. Create an instance of the component first, because the component finds and loads the kernel.
// Your program may be in any folder.
//
// A call raises a structured exception in two cases. The exception ends a program that does not handle it:
//   0xC06D007E  no kernel is loaded in the process
//   0xC06D007F  the kernel lacks the function
//
// All texts are zero-terminated, in the system's ANSI code page. Keys are compared byte by byte. Addresses are signed
// 32-bit numbers; 0 and negative numbers mean "none". Do not link with /LARGEADDRESSAWARE, because valid addresses must
// be below 2 GB.
//
// Call the kernel only from the component's home thread, the thread that created the first instance, because a kernel
// need not accept calls from other threads. The development kernel accepts calls from any thread.
#pragma once

#ifdef _WIN64
#error "QmxKrn2K.dll is a 32-bit library: build a 32-bit program"
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// Stores `value` under `key` for all modules. A new value replaces the old value as a whole. The kernel may rewrite
/// the buffer of `value` in place, within its length, so pass a copy. Do not rely on the result. The development kernel
/// returns 1 on success. It returns 0 for a null pointer, if memory is short, or if it cannot get the lock. No function
/// removes a key; store "" instead.
long __stdcall E_SetString(const char* key, char* value);

/// Returns the address of the text under `key`, or a number <= 0 if there is no text. Copy the text at once, because a
/// kernel may reuse the memory at the next call. Never write to the text.
long __stdcall E_GetString(const char* key);

/// Returns the handle of the open design database. Pass the handle to O_GetName.
long __stdcall DB_DataBase(void);

/// Returns the address of the name of the object `handle`, or 0 if there is no name. Copy the text at once, as with
/// E_GetString. The development kernel knows only the handle that DB_DataBase returns. The object's name is the text
/// under "DESIGN_NAME".
long __stdcall O_GetName(long handle);

#ifdef __cplusplus
}
#endif
