#include "ui/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace quillmark {
namespace {

// Black in the drawing stands for the colour of text; drawings with colours of their own have none.
constexpr const char* kInk = "#000";

// Draws from the file at each size, so that icons are sharp at any scale and follow the palette.
class DrawingEngine : public QIconEngine {
  public:
    explicit DrawingEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const QPalette palette = QApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role =
            mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        QByteArray coloured = drawing_;
        coloured.replace(kInk, palette.color(group, role).name().toLatin1());
        QSvgRenderer renderer(coloured);
        if (mode == QIcon::Disabled && !drawing_.contains(kInk)) {
            painter->setOpacity(0.4);
        }
        renderer.render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new DrawingEngine(drawing_); }

  private:
    QByteArray drawing_;
};

}  // namespace

QIcon icon(const char* name) {
    QFile file(QStringLiteral(":/icons/") + QLatin1String(name) + QStringLiteral(".svg"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QIcon(new DrawingEngine(file.readAll()));
}

}  // namespace quillmark
