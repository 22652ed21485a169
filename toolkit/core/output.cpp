#include "toolkit/core/output.h"

#include <utility>

#include "platform/platform.h"

namespace toolkit {

namespace {

auto& Listener() {
    static auto* const listener = new std::function<void(std::string_view)>;
    return *listener;
}

}  // namespace

void PrintPiece(std::string_view text) {
    platform::Current().Output->Write(text);
    if (Listener()) Listener()(text);
}

void SetOutputListener(std::function<void(std::string_view)> listener) {
    Listener() = std::move(listener);
}

}  // namespace toolkit
