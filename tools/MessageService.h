// The component's message texts and boxes, made ready in this process as the component makes them ready in a module's.
#pragma once

namespace tools {

/// Chooses ports, kernel and reader. Where no module has published the product's name yet, publishes the product's
/// identity; the module's name and caption, which go into titles, become what they are once the main form has loaded.
void PrepareMessages();

}  // namespace tools
