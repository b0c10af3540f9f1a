// Simulates a process. A test sets its command line, its folder and whether an earlier instance exists.
#pragma once

#include "runtime/ProcessPort.h"

namespace runtime::headless {

class FixedProcess : public ProcessPort {
 public:
    FixedProcess();

    String CommandLine() override { return commandLine_; }
    String ComponentFolder() override { return componentFolder_; }
    std::unique_ptr<InstanceClaim> ClaimFirstInstance() override;

    void SetCommandLine(StringView arguments) { commandLine_ = arguments; }
    void SetComponentFolder(StringView folder) { componentFolder_ = folder; }
    /// Sets whether another process holds the claim.
    void SetEarlierInstance(bool exists) { earlierInstance_ = exists; }

    /// The number of claims that exist now.
    int HeldClaims() const { return *heldClaims_; }

 private:
    String commandLine_;
    String componentFolder_ = u"C:\\Pelorix";
    bool earlierInstance_ = false;
    std::shared_ptr<int> heldClaims_;  ///< shared with the claims, which may outlive the process object
};

}  // namespace runtime::headless
