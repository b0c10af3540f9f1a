// Measures runs of text in a font, in pixels.
#pragma once

#include "runtime/TextLayout.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class GdiMeasure : public TextMeasure {
 public:
    /// Measures text for the screen. `font` must outlive the object.
    explicit GdiMeasure(HFONT font);
    GdiMeasure(const GdiMeasure&) = delete;
    GdiMeasure& operator=(const GdiMeasure&) = delete;
    ~GdiMeasure() override;

    int Width(StringView run) override;
    std::size_t Fit(StringView run, int width) override;
    int LineHeight() override;

 private:
    HDC context_;
    HGDIOBJ former_;
};

}  // namespace runtime::win32
