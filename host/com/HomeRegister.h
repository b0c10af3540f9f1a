// Who is home, how many live there, and how to reach it: the data behind the home apartment, under one lock. It
// makes no COM calls; cookies of the process's interface table that are no longer wanted are handed back to the
// caller, who revokes them without holding the lock.
#pragma once

#include "host/com/ComHeaders.h"
#include "runtime/win32/Handle.h"

namespace host::com {

class HomeRegister {
 public:
    struct Entry {
        unsigned generation = 0;  ///< 0: there is no home
        bool isHere = false;      ///< the calling thread is home; a place in the count was taken for it
        DWORD cookie = 0;         ///< of the home's factory
        DWORD unwantedCookie = 0;
    };
    struct Rest {
        bool isEmpty;
        DWORD unwantedCookie;
    };

    /// The way to the home there is.
    Entry Enter();
    /// The same; the calling thread becomes home when there is none.
    Entry Settle(DWORD cookie, runtime::win32::KernelHandle thread);
    /// Gives back a place in the count. Answers an unwanted cookie or 0.
    [[nodiscard]] DWORD Leave(unsigned generation);
    /// Forgets a home that cannot be reached. Answers an unwanted cookie or 0.
    [[nodiscard]] DWORD Forget(unsigned generation);
    /// Whether no instance and no window is left; a home that is over is forgotten.
    Rest LookForRest();

 private:
    DWORD ForgetIfOver();
    DWORD Clear();
    Entry Found();

    SRWLOCK lock_ = SRWLOCK_INIT;
    unsigned lastGeneration_ = 0;
    unsigned instances_ = 0;  ///< of all generations
    unsigned generation_ = 0;
    unsigned residents_ = 0;
    DWORD threadId_ = 0;
    DWORD cookie_ = 0;
    runtime::win32::KernelHandle thread_;
};

/// A handle of the calling thread by which others see that it has ended.
runtime::win32::KernelHandle OwnThread();

}  // namespace host::com
