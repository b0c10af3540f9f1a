#include "runtime/headless/FixedProcess.h"

#include <utility>

namespace runtime::headless {
namespace {

class CountedClaim : public InstanceClaim {
 public:
    explicit CountedClaim(std::shared_ptr<int> held) : held_(std::move(held)) { ++*held_; }
    ~CountedClaim() override { --*held_; }
    CountedClaim(const CountedClaim&) = delete;
    CountedClaim& operator=(const CountedClaim&) = delete;

 private:
    std::shared_ptr<int> held_;
};

}  // namespace

FixedProcess::FixedProcess() : heldClaims_(std::make_shared<int>(0)) {}

std::unique_ptr<InstanceClaim> FixedProcess::ClaimFirstInstance() {
    if (earlierInstance_) return nullptr;
    return std::make_unique<CountedClaim>(heldClaims_);
}

}  // namespace runtime::headless
