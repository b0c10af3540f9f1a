// Counts what the process has of the window system, so that a test can see what is left behind.
#pragma once

namespace tests {

long GdiObjects();
long UserObjects();
/// Top-level windows of this thread.
long Windows();

}  // namespace tests
