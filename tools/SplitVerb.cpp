// `backproc split`: a text's comma fields, as the suite's modules read them.
#include <iomanip>
#include <limits>
#include <ostream>

#include "routing/FieldSplitter.h"
#include "tools/ClosedQuotes.h"
#include "tools/Display.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc split TEXT

Splits TEXT into comma fields as the suite's modules read them: a line a field with its number, a tab, its text, a
tab and its numeric value; then the number of fields. A field may be in double quotes. The modules' splitter never
returns for a quote that is not closed; the tool names the field and fails.

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc split "A,B,"
)";

int RunSplit(const Arguments& arguments, Console& console) {
    if (arguments.empty()) throw Missing("TEXT");
    AtMost(1, arguments);
    RequireClosedQuotes(arguments[0]);
    routing::SplitFields(arguments[0]);
    const std::size_t count = routing::FieldTexts.size() - 1;
    console.out << std::setprecision(std::numeric_limits<double>::digits10);
    for (std::size_t i = 1; i <= count; ++i) {
        console.out << i << '\t' << Display(routing::FieldTexts[i]) << '\t' << routing::FieldValues[i] << '\n';
    }
    console.out << count << '\n';
    return kSuccess;
}

}  // namespace

const Verb kSplitVerb = {"split", "Splits a text into comma fields", kHelp, RunSplit};

}  // namespace tools
