#include "tests/desktop/screen.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

// The output of a shell command, without the line end.
std::string OutputOf(const std::string& command) {
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return output;
    std::array<char, 4096> chunk;
    while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), pipe)) {
        output.append(chunk.data(), count);
    }
    pclose(pipe);
    while (output.ends_with('\n')) output.pop_back();
    return output;
}

}  // namespace

Program::Program(const std::vector<std::string>& command, const std::string& display) {
    int in[2];
    int out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) return;
    id_ = fork();
    if (id_ == 0) {
        dup2(in[0], STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        if (!display.empty()) setenv("DISPLAY", display.c_str(), 1);
        unsetenv("WAYLAND_DISPLAY");
        unsetenv("QT_QPA_PLATFORM");
        setenv("ALSOFT_DRIVERS", "null", 1);
        std::vector<char*> words;
        words.reserve(command.size() + 1);
        for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
        words.push_back(nullptr);
        execvp(words[0], words.data());
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    input_ = in[1];
    output_ = out[0];
}

Program::~Program() {
    close(input_);
    close(output_);
    if (gone_ || id_ < 0) return;
    kill(id_, SIGTERM);
    if (Ended(std::chrono::seconds(2)) || gone_) return;
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
}

void Program::Say(const std::string& line) const {
    const std::string text = line + "\n";
    if (write(input_, text.data(), text.size()) < 0) std::perror("Say");
}

std::optional<std::string> Program::Line(const std::string& beginning, std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (true) {
        while (true) {
            const std::size_t lineEnd = unread_.find('\n');
            if (lineEnd == std::string::npos) break;
            std::string line = unread_.substr(0, lineEnd);
            unread_.erase(0, lineEnd + 1);
            if (line.starts_with(beginning)) return line;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        pollfd ready{output_, POLLIN, 0};
        if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0) return {};
        std::array<char, 4096> chunk;
        const ssize_t count = read(output_, chunk.data(), chunk.size());
        if (count <= 0) return {};
        unread_.append(chunk.data(), static_cast<std::size_t>(count));
    }
}

long Program::ResidentKiB() const {
    std::ifstream status("/proc/" + std::to_string(id_) + "/status");
    for (std::string word; status >> word;) {
        long size = 0;
        if (word == "VmRSS:" && status >> size) return size;
    }
    return 0;
}

void Program::Signal(int number) const {
    kill(id_, number);
}

std::optional<int> Program::Ended(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    int status = 0;
    while (waitpid(id_, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) return {};
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    gone_ = true;
    if (!WIFEXITED(status)) return {};
    return WEXITSTATUS(status);
}

Screen& Screen::Shared() {
    static Screen screen("1600x1000", Manager::Openbox);
    return screen;
}

Screen::Screen(const std::string& size, Manager manager) {
    setenv("LC_ALL", "C.UTF-8", 1);  // xdotool neither types nor finds umlauts without one
    // The server takes a free number and says which.
    std::vector<std::string> server{"Xvfb", "-displayfd", "1",         "-screen",
                                    "0",    size + "x24", "-nolisten", "tcp"};
    // Or it would start anew, and refuse the manager, when whoever looks for that one leaves alone.
    if (manager != Manager::None) server.emplace_back("-noreset");
    server_.emplace(server, "");
    display_.assign(1, ':');
    display_ += server_->Line("").value_or("none");
    if (manager == Manager::None) return;
    const bool tiles = manager == Manager::I3;
    manager_.emplace(tiles ? std::vector<std::string>{"i3", "-c", "/dev/null"}
                           : std::vector<std::string>{"openbox", "--sm-disable"},
                     display_);
    Eventually([&] {
        return !OutputOf("xprop -display " + display_ +
                         " -root _NET_SUPPORTING_WM_CHECK 2>&1 | "
                         "grep 'window id'")
                    .empty();
    });
    // With the first key the server changes to the keyboard of the tests, and a window manager asks
    // for its keys anew: one pressed meanwhile would be lost.
    Press("Shift_L");
}

std::string Screen::Do(const std::string& words) const {
    return OutputOf("DISPLAY=" + display_ + " xdotool " + words + " 2>/dev/null");
}

std::string Screen::Describe(const std::string& window) const {
    return OutputOf("xwininfo -display " + display_ + " -id " + window + " 2>/dev/null");
}

void Screen::Reserve(const std::string& window, int rows) const {
    OutputOf("xprop -display " + display_ + " -id " + window +
             " -f _NET_WM_STRUT 32c -set _NET_WM_STRUT 0,0," + std::to_string(rows) + ",0");
}

void Screen::Keyboard(const std::string& layout) const {
    OutputOf("setxkbmap -display " + display_ + " " + layout + " 2>&1");
}

void Screen::Press(const std::string& key) const {
    static_cast<void>(Do("key " + key));
}

void Screen::Type(const std::string& text) const {
    static_cast<void>(Do("type --delay 15 '" + text + "'"));
}

std::string Screen::Clipboard(const std::string& type) const {
    return OutputOf("timeout 5 xclip -display " + display_ + " -selection clipboard -o -t " + type +
                    " 2>/dev/null");
}

bool Screen::SaveClipboard(const std::string& type, const std::string& path) const {
    OutputOf("timeout 5 xclip -display " + display_ + " -selection clipboard -o -t " + type +
             " 2>/dev/null > " + path);
    return !QImage(QString::fromStdString(path)).isNull();
}

QImage Screen::Picture() const {
    const std::string path = OutputOf("mktemp --suffix=.png");
    OutputOf("import -display " + display_ + " -window root " + path + " 2>&1");
    const QImage picture(QString::fromStdString(path));
    std::remove(path.c_str());
    return picture.convertToFormat(QImage::Format_RGB32);
}

std::string Screen::WindowTitled(const std::string& title) const {
    std::string window;
    Eventually([&] {
        window = Do("search --onlyvisible --name '^" + title + "$'");
        window = window.substr(window.rfind('\n') + 1);
        return !window.empty();
    });
    return window;
}
