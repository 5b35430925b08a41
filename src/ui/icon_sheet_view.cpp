#include "ui/icon_sheet_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include "paint/qt_image.h"
#include "ui/qt_text.h"
#include "ui/text_theme.h"

namespace quillmark {
namespace {

constexpr int kWheelStep = 120;  // eighths of a degree, as mice count a step
constexpr int kRowsPerStep = 1;
constexpr int kSidewaysStep = 20;   // pixels
constexpr double kFrameTone = 0.2;  // near the ground, yet to be seen on it in any theme

}  // namespace

IconSheetView::IconSheetView(const Document& document, const Traduction& traduction)
    : sheet_(document, traduction) {
    setObjectName(QStringLiteral("picAfficheTout"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setMouseTracking(true);
    verticalScrollBar()->setSingleStep(1);
    horizontalScrollBar()->setSingleStep(kSidewaysStep);
}

void IconSheetView::setOptions(const SheetOptions& options, const QFont& font, Ground ground) {
    theme_.font = font;
    theme_.ground = palette().color(QPalette::Base);
    theme_.selection = palette().color(QPalette::Highlight);
    theme_.frame = mixed(theme_.ground, palette().color(QPalette::Text), kFrameTone);
    theme_.picture = ground;
    cells_.setTheme(theme_);
    SheetOptions own = options;
    own.lineHeight = sheetLineHeight(font);
    own.ratio = devicePixelRatioF();
    own.ground = toCouleur(theme_.ground.rgb());
    own.text = toCouleur(palette().color(QPalette::Text).rgb());
    sheet_.setOptions(own);
    Rafraichir_VisualisationBox();
    showCell(sheet_.cellOf(current_));
}

void IconSheetView::AfficheTout() {
    sheet_.refresh();
    Rafraichir_VisualisationBox();
    // Whoever scrolled away stays there while the cell stays where it is.
    if (const int cell = sheet_.cellOf(current_); cell != seen_) {
        showCell(cell);
    }
}

void IconSheetView::setCurrent(const ObjectRef& object) {
    if (object == current_) {
        return;
    }
    current_ = object;
    showCell(sheet_.cellOf(object));
    viewport()->update();
}

void IconSheetView::Rafraichir_VisualisationBox() {
    sheet_.setWidth(viewport()->width());
    const SheetLayout& layout = sheet_.layout();
    verticalScrollBar()->setRange(0, static_cast<int>(layout.largestValue(viewport()->height())));
    verticalScrollBar()->setPageStep(
        static_cast<int>(layout.valuesOf(layout.pageRows(viewport()->height()))));
    const auto over = std::max<std::int64_t>(layout.width() - viewport()->width(), 0);
    horizontalScrollBar()->setRange(0, static_cast<int>(over));
    horizontalScrollBar()->setPageStep(viewport()->width());
    viewport()->update();
}

std::int64_t IconSheetView::scrolled() const {
    return -SheetLayout::top(verticalScrollBar()->value());
}

void IconSheetView::showCell(int cell) {
    seen_ = isVisible() ? cell : kNoCell;  // without its size it scrolls to no purpose
    if (cell >= 0) {
        verticalScrollBar()->setValue(static_cast<int>(sheet_.layout().valueShowing(
            cell, verticalScrollBar()->value(), viewport()->height())));
    }
}

int IconSheetView::cellAt(const QPoint& place) const {
    return sheet_.layout().hit(place.x() + horizontalScrollBar()->value(), place.y() + scrolled());
}

void IconSheetView::choose(int cell) {
    if (cell >= 0 && chosen) {
        chosen(sheet_.objectAt(cell));
    }
}

bool IconSheetView::isCurrent(int cell) const {
    return cell >= 0 && cell == sheet_.cellOf(current_);
}

void IconSheetView::paintEvent(QPaintEvent* event) {
    if (sheet_.options().ratio != devicePixelRatioF()) {
        // On a screen of another scale; scroll bars can't change while painting.
        QMetaObject::invokeMethod(
            this, [this] { setOptions(sheet_.options(), theme_.font, theme_.picture); },
            Qt::QueuedConnection);
    }
    QPainter painter(viewport());
    painter.fillRect(event->rect(), theme_.ground);
    const std::int64_t top = scrolled();
    const int currentCell = sheet_.cellOf(current_);
    for (const SheetCell& cell : sheet_.cells(top + event->rect().top(), event->rect().height())) {
        const QPoint corner(static_cast<int>(cell.frame.x) - horizontalScrollBar()->value(),
                            static_cast<int>(cell.frame.y - top));
        cells_.afficheIcone(painter, sheet_, cell, corner, cell.index == currentCell);
    }
}

void IconSheetView::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    Rafraichir_VisualisationBox();
    showCell(sheet_.cellOf(current_));
}

void IconSheetView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    Rafraichir_VisualisationBox();
}

void IconSheetView::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    if (std::abs(turned.x()) > std::abs(turned.y())) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    wheel_ += event->angleDelta().y();
    const int steps = wheel_ / kWheelStep;
    wheel_ -= steps * kWheelStep;
    if (steps == 0) {
        return;
    }
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        if (zoomRequested) {
            zoomRequested(steps > 0 ? 1 : -1);
        }
        return;
    }
    const auto values = static_cast<int>(sheet_.layout().valuesOf(kRowsPerStep));
    verticalScrollBar()->setValue(verticalScrollBar()->value() - steps * values);
}

void IconSheetView::keyPressEvent(QKeyEvent* event) {
    const bool sideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (sideways && horizontalScrollBar()->maximum() > 0) {
        // One cell, wider than the view: there is nothing beside it but its own other end.
        horizontalScrollBar()->triggerAction(event->key() == Qt::Key_Left
                                                 ? QScrollBar::SliderSingleStepSub
                                                 : QScrollBar::SliderSingleStepAdd);
        return;
    }
    const int cell = sheet_.cellOf(current_);
    const auto go = [&](SheetMove move) {
        choose(sheet_.layout().moved(cell, move, viewport()->height()));
    };
    switch (event->key()) {
        case Qt::Key_Left:
            go(SheetMove::left);
            break;
        case Qt::Key_Right:
            go(SheetMove::right);
            break;
        case Qt::Key_Up:
            go(SheetMove::up);
            break;
        case Qt::Key_Down:
            go(SheetMove::down);
            break;
        case Qt::Key_PageUp:
            go(SheetMove::pageUp);
            break;
        case Qt::Key_PageDown:
            go(SheetMove::pageDown);
            break;
        case Qt::Key_Home:
            go(SheetMove::home);
            break;
        case Qt::Key_End:
            go(SheetMove::end);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (cell >= 0 && activated) {
                activated(current_);
            }
            break;
        default:
            QAbstractScrollArea::keyPressEvent(event);
            return;
    }
    event->accept();
}

void IconSheetView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        pressed_ = cellAt(event->pos());
    }
}

void IconSheetView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && cellAt(event->pos()) == pressed_) {
        choose(pressed_);
    }
}

void IconSheetView::mouseDoubleClickEvent(QMouseEvent* event) {
    const int cell = cellAt(event->pos());
    if (event->button() == Qt::LeftButton && isCurrent(cell) && activated) {
        activated(current_);
    }
}

void IconSheetView::contextMenuEvent(QContextMenuEvent* event) {
    const int cell = event->reason() == QContextMenuEvent::Mouse ? cellAt(event->pos())
                                                                 : sheet_.cellOf(current_);
    if (cell >= 0) {
        choose(cell);
        // Not when the user stayed with the object that was selected before.
        if (isCurrent(cell) && menuRequested) {
            menuRequested(event->globalPos());
        }
    }
}

bool IconSheetView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString tip = plainTip(toQt(sheet_.tip(cellAt(help->pos()))));
        QToolTip::showText(help->globalPos(), tip, viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void IconSheetView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        setOptions(sheet_.options(), theme_.font, theme_.picture);
    }
}

}  // namespace quillmark
