// Implements `backproc register` and `backproc unregister`. The verbs add and remove the component's registry entries.
#include <ostream>

#include "host/com/ComHeaders.h"
#include "tools/ComFailure.h"
#include "tools/Display.h"
#include "tools/Registration.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kRegisterHelp =
    R"(Usage: backproc register [--user]

Registers the K4TBackProcess.dll beside the tool for all users of the machine. This needs administrator rights. Shows
what was registered, and where. Fails if the component is already registered for the current user (with --user: for
the machine), because the user's registration would hide the machine's.

  --user  registers it for the current user only; this needs no special rights

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc register --user
)";

constexpr std::string_view kUnregisterHelp =
    R"(Usage: backproc unregister [--user]

Removes the registration for all users of the machine. This needs administrator rights. Does nothing if there
is no registration.

  --user  removes the registration of the current user; this needs no special rights

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc unregister --user
)";

constexpr const char* kLookFurther = "run 'backproc doctor' to see why";

Scope ReadScope(const Arguments& arguments) {
    if (arguments.empty()) return Scope::kMachine;
    if (arguments.front() != u"--user") throw UnknownOption(arguments.front());
    RequireAtMost(1, arguments);
    return Scope::kUser;
}

bool IsMissingRight(HRESULT result) {
    constexpr HRESULT kRefused[] = {E_ACCESSDENIED, TYPE_E_REGISTRYACCESS, SELFREG_E_CLASS, SELFREG_E_TYPELIB};
    for (const HRESULT refused : kRefused) {
        if (result == refused) return true;
    }
    return false;
}

/// Runs `change`. If `change` fails for the machine because a right is missing, the error contains advice.
void Change(void (*change)(Scope), Scope scope) try { change(scope); } catch (const ComFailure& failure) {
    if (scope == Scope::kUser || !IsMissingRight(failure.Result())) throw;
    throw std::runtime_error(
        std::string(failure.what()) +
        "\nThe machine's registration needs an administrator's rights: run this as one, or with --user, "
        "which needs none.");
}

void PrintClass(std::ostream& out) {
    out << "class K4TBackProcess.clsQmxBackProcess\n"
        << "identifier " << Display(ClassIdentifier()) << '\n';
}

/// Refuses a second registration, because the user's entry would hide later updates of the machine's entry.
void RequireNoOther(Scope scope) {
    const Scope other = scope == Scope::kUser ? Scope::kMachine : Scope::kUser;
    const std::optional<String> library = RegisteredLibrary(other);
    if (!library) return;
    const char* const holder = other == Scope::kUser ? "the user" : "the machine";
    const char* const command =
        other == Scope::kUser ? "'backproc unregister --user'" : "'backproc unregister' as an administrator";
    throw std::runtime_error(std::string("already registered for ") + holder + ": " + Display(*library) +
                             "; a user's registration hides the machine's, so run " + command + " first");
}

int RunRegister(const Arguments& arguments, Console& console) {
    const Scope scope = ReadScope(arguments);
    RequireNoOther(scope);
    Change(Register, scope);
    const std::optional<String> library = RegisteredLibrary(scope);
    if (!library)
        throw std::runtime_error(std::string("nothing was registered in ") + RegistryPlace(scope) + "; " +
                                 kLookFurther);
    PrintClass(console.out);
    console.out << "library " << Display(*library) << '\n' << "registered in " << RegistryPlace(scope) << '\n';
    return kSuccess;
}

int RunUnregister(const Arguments& arguments, Console& console) {
    const Scope scope = ReadScope(arguments);
    const bool wasThere = RegisteredLibrary(scope).has_value();
    Change(Unregister, scope);
    if (RegisteredLibrary(scope))
        throw std::runtime_error(std::string("it is still registered in ") + RegistryPlace(scope) + "; " +
                                 kLookFurther);
    PrintClass(console.out);
    console.out << (wasThere ? "removed from " : "was not registered in ") << RegistryPlace(scope) << '\n';
    return kSuccess;
}

}  // namespace

const Verb kRegisterVerb = {"register", "Registers the component for all users or the current one", kRegisterHelp,
                            RunRegister};
const Verb kUnregisterVerb = {"unregister", "Removes the registration", kUnregisterHelp, RunUnregister};

}  // namespace tools
