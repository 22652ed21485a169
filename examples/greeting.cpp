// A form that asks for a name and a year and answers with a sentence.
// Shows: a window with a header, t_InputForm, text in colours, t_TextToInt.
// Keys: Return ends a field, Escape leaves it.

#include "korvandi.h"

namespace {

constexpr std::uint8_t kWindow = 0;

constexpr std::int64_t kGreen = 12;
constexpr std::int64_t kYellow = 13;

// A line of the form; the answer stays on the screen.
std::string Asked(const std::string& question, std::int64_t length) {
    t_Color(kWindow, kGreen);
    const std::string answer = t_InputForm(kWindow, question, "", false, 0, length);
    t_Print(kWindow, "\r");
    return answer;
}

void Greeting() {
    t_InitWindow(kWindow, 24, 44, 11, 16, "MenloRegular 16x32.font");
    t_WindowTitle(kWindow, "Begrüßung");
    t_WindowCenter(kWindow);
    t_WindowFront(kWindow);
    t_Header(kWindow, "Begrüßung", "Return: weiter");
    t_Print(kWindow, "\r");
    const std::string name = Asked("Wie heißen Sie?    ", 20);
    const std::string year = Asked("Geboren im Jahr:   ", 4);
    t_Color(kWindow, kYellow);
    t_Print(kWindow, "Guten Tag, " + name + "!\r");
    t_Print(kWindow, "2050 werden Sie " + std::to_string(2050 - t_TextToInt(t_StringToText(year))) +
                         " Jahre alt.\r");
    t_QuitProgram(kWindow);
}

}  // namespace

int main(int argc, char** argv) {
    return korvandi::Run(argc, argv, "Begrüßung", Greeting);
}
