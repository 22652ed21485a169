#include "platform/desktop/window_maker.h"

#include <utility>

#include "platform/desktop/form_window.h"
#include "platform/desktop/graphic_window.h"
#include "platform/desktop/text.h"
#include "platform/desktop/text_window.h"
#include "platform/main_queue.h"

namespace platform::desktop {

// Windows live as long as the process.

GraphicWindowParts DesktopWindowMaker::MakeGraphicWindow(ViewClient& client) {
    ExpectMain(__func__);
    auto* const window = new GraphicWindow(desk_, client);
    return {window, &window->Area()};
}

TextWindowParts DesktopWindowMaker::MakeTextWindow(std::string_view title, double width,
                                                   double height, const TextLayout& layout) {
    ExpectMain(__func__);
    const QSize content = QSizeF(width, height).toSize();
    return (new TextWindow(desk_, ToQt(title), content, layout))->Parts();
}

Window* DesktopWindowMaker::MakeFormWindow(std::string_view title, std::vector<FormRow> rows) {
    ExpectMain(__func__);
    return new FormWindow(desk_, ToQt(title), std::move(rows));
}

}  // namespace platform::desktop
