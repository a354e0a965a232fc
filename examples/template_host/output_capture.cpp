// The sink in which the library keeps what is printed while it evaluates. There is nothing to change here.
#include "host/streams.h"

OutputCapture::OutputCapture() = default;
OutputCapture::~OutputCapture() = default;
void OutputCapture::write(std::u16string_view text) { text_ += text; }
const std::u16string& OutputCapture::getText() const noexcept { return text_; }
