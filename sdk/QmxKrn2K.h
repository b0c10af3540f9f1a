// The suite's kernel library, QmxKrn2K.dll, as a module calls it: named strings that all modules share ("kernel
// strings"), and the name of the open design. The development kernel has the same four functions.
//
// Link with lib/libQmxKrn2K.a. It takes the library that is in memory at the first call, and loads none itself. So
// create an instance of the component first: it finds the kernel and loads it, and your calls reach the same kernel,
// from a program in any folder. A call in a process without the kernel raises the structured exception 0xC06D007E, or
// 0xC06D007F if the kernel lacks the function; it ends a program that does not handle it.
//
// All texts are zero-terminated, in the system's ANSI code page. Keys are compared byte by byte. An address is a 32-bit
// number, and a valid one lies below 2 GB, because "not above 0" means "none": do not link with /LARGEADDRESSAWARE.
//
// Which threads may call is the kernel's affair. The component calls it from one thread, its home apartment's; a module
// that does the same is safe with every kernel. The development kernel may be called from any thread.
#pragma once

#ifdef _WIN64
#error "QmxKrn2K.dll is a 32-bit library: build a 32-bit program"
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// Stores `value` under `key`, for all modules. A new value replaces the old one as a whole. The kernel may rewrite the
/// buffer of `value` in place, within its length, so give it a copy. Do not rely on the result; the development kernel
/// returns 0 when the value could not be stored (null pointer, no memory, 10 seconds without the lock), else 1. There
/// is no call that removes a key: store "" instead.
long __stdcall E_SetString(const char* key, char* value);

/// The address of the text under `key`, or a number not above 0 when there is none. Copy the text at once: the address
/// holds until the same thread asks for the same key again. Never write to it.
long __stdcall E_GetString(const char* key);

/// The handle of the open design database, for O_GetName.
long __stdcall DB_DataBase(void);

/// The address of the name of the object `handle`, 0 when there is none. Copy the text at once, as with E_GetString.
/// The development kernel knows the handle of DB_DataBase, and returns what is stored under the key "DESIGN_NAME".
long __stdcall O_GetName(long handle);

#ifdef __cplusplus
}
#endif
