// Loads a kernel library from a given file and declares its functions as the suite's modules call them.
#pragma once

#include <stdexcept>
#include <string>

#include "runtime/win32/Handle.h"

namespace tests::kernel {

class LoadedKernel {
 public:
    explicit LoadedKernel(const runtime::String& path)
        : library_(LoadLibraryW(runtime::win32::Wide(path))),
          E_SetString(Entry<decltype(E_SetString)>("E_SetString")),
          E_GetString(Entry<decltype(E_GetString)>("E_GetString")),
          DB_DataBase(Entry<decltype(DB_DataBase)>("DB_DataBase")),
          O_GetName(Entry<decltype(O_GetName)>("O_GetName")),
          QmxDev_NextString(Entry<decltype(QmxDev_NextString)>("QmxDev_NextString")) {}

 private:
    template <typename Function>
    Function Entry(const char* name) const {
        const FARPROC address = GetProcAddress(library_.Get(), name);
        if (!address) throw std::runtime_error(std::string("not in the kernel library: ") + name);
        return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    }

    runtime::win32::Library library_;

 public:
    long(__stdcall* E_SetString)(const char* key, const char* value);
    long(__stdcall* E_GetString)(const char* key);
    long(__stdcall* DB_DataBase)();
    long(__stdcall* O_GetName)(long handle);
    long(__stdcall* QmxDev_NextString)(const char* afterKey, char* keyBuffer, long size);
};

}  // namespace tests::kernel
