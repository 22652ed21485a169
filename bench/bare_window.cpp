#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

// What the windowed program is measured against: a window with menus that shows a picture of 24
// bits, built pixel by pixel for every paint event. bare_window frames-per-second

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;

class PictureWidget final : public QWidget {
  public:
    PictureWidget() : memory_(std::size_t{3} * kWidth * kHeight) { setFixedSize(kWidth, kHeight); }

    void ScrollUp() {
        constexpr std::size_t kLine = std::size_t{3} * kWidth * 32;
        std::copy(memory_.begin() + kLine, memory_.end(), memory_.begin());
        std::fill(memory_.end() - kLine, memory_.end(), ++value_);
        update();
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const std::uint8_t* from = memory_.data();
        for (int y = 0; y < kHeight; ++y) {
            auto* const line = reinterpret_cast<QRgb*>(image_.scanLine(y));
            for (int x = 0; x < kWidth; ++x, from += 3) line[x] = qRgb(from[0], from[1], from[2]);
        }
        QPainter(this).drawImage(0, 0, image_);
        if (!shown_) std::puts("shown");
        std::fflush(stdout);
        shown_ = true;
    }

  private:
    std::vector<std::uint8_t> memory_;
    QImage image_{kWidth, kHeight, QImage::Format_RGB32};
    std::uint8_t value_ = 0;
    bool shown_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    for (const char* const title : {"Korvandi", "Ablage", "Bearbeiten", "Fenster"}) {
        QMenu* const menu = window.menuBar()->addMenu(QString::fromUtf8(title));
        for (int i = 0; i < 8; ++i) menu->addAction(QString::number(i));
    }
    auto* const picture = new PictureWidget;
    window.setCentralWidget(picture);
    window.show();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, picture, [picture] { picture->ScrollUp(); });
    if (const int rate = argc > 1 ? std::atoi(argv[1]) : 0; rate > 0) timer.start(1000 / rate);
    return QApplication::exec();
}
