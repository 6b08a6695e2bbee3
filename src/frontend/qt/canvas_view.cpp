#include "frontend/qt/canvas_view.h"

#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/key_text.h"
#include "frontend/qt/look.h"
#include "frontend/qt/text.h"

namespace {

// How long a release waits for the press that would make it a repeat's.
constexpr int repeatMilliseconds = 20;

char32_t character(const QKeyEvent& event) {
  const auto characters = event.text().toUcs4();
  return characters.isEmpty() ? 0 : characters.front();
}

// Four characters have the numbers of the cursor keys.
int otherKeyCode(char32_t typed) {
  const int code = static_cast<int>(typed);
  return code >= leftKey && code <= downKey ? 0 : code;
}

int keyCode(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Left:
      return leftKey;
    case Qt::Key_Up:
      return upKey;
    case Qt::Key_Right:
      return rightKey;
    case Qt::Key_Down:
      return downKey;
    default:
      return otherKeyCode(character(event));
  }
}

// Keys that a canvas leaves to its window.
bool forTheWindow(const QKeyEvent& event) {
  return event.key() == Qt::Key_Escape || event.key() == Qt::Key_Return ||
         event.key() == Qt::Key_Enter;
}

QRect between(const CanvasItem& item) {
  return QRect(QPoint(item.x1, item.y1), QPoint(item.x2, item.y2)).normalized();
}

void paintRectangle(QPainter& painter, const CanvasItem& item) {
  const QRect area = between(item);
  if (item.kind == CanvasItem::bar) return painter.fillRect(area, shown(item.colour));
  painter.setPen(QPen(shown(item.colour), 1));
  painter.drawRect(area.adjusted(0, 0, -1, -1));
}

// Where a pixel of the canvas is no whole number of the screen's, a line of that width would change
// its own width from step to step; it is smoothed, through the middle of its pixels.
void paintLines(QPainter& painter, const std::vector<QLine>& lines, Colour colour) {
  const double ratio = painter.device()->devicePixelRatio() * painter.transform().m11();
  painter.save();
  if (ratio != std::floor(ratio)) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0.5, 0.5);
  }
  painter.setPen(QPen(shown(colour), 1));
  painter.drawLines(lines.data(), static_cast<int>(lines.size()));
  painter.restore();
}

}  // namespace

// Lines that follow one another in one colour are drawn in one call.
void paintItems(QPainter& painter, const std::vector<CanvasItem>& items) {
  std::vector<QLine> lines;
  Colour colour;
  const auto drawLines = [&] {
    if (!lines.empty()) paintLines(painter, lines, colour);
    lines.clear();
  };
  for (const CanvasItem& item : items) {
    const bool line = item.kind == CanvasItem::line;
    if (!line || item.colour != colour) drawLines();
    colour = item.colour;
    if (line) {
      lines.emplace_back(item.x1, item.y1, item.x2, item.y2);
    } else {
      paintRectangle(painter, item);
    }
  }
  drawLines();
}

namespace {

// Assistive programs pass over a plain widget.
QAccessibleInterface* canvasInterface(const QString&, QObject* object) {
  auto* const canvas = dynamic_cast<CanvasView*>(object);
  return canvas ? new QAccessibleWidget(canvas, QAccessible::Canvas) : nullptr;
}

}  // namespace

CanvasView::CanvasView(Canvas& record, QWidget* parent) : QWidget(parent), record_(record) {
  [[maybe_unused]] static const bool told = (QAccessible::installFactory(canvasInterface), true);
  setFixedSize(record.width(), record.height());
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  release_.setSingleShot(true);
  release_.setInterval(repeatMilliseconds);
  connect(&release_, &QTimer::timeout, this, &CanvasView::releaseHeldKey);
  record.observer = [this](const Change& change) {
    if (change.kind == Change::focus) return setFocus(Qt::OtherFocusReason);
    if (change.kind == Change::repaint) return repaint();
    if (change.kind == Change::values) showValues();
    update();
  };
  showValues();
}

CanvasView::~CanvasView() { record_.observer = nullptr; }

// A canvas is hidden while it is drawn. The widget stays, since hiding would move its focus away.
void CanvasView::showValues() {
  setEnabled(record_.enabled());
  setToolTip(shownTip(record_.toolTip()));
  showNames(this, record_);
  setUpdatesEnabled(record_.visible());
}

void CanvasView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  painter.translate(origin_);
  painter.scale(scale_, scale_);
  paintItems(painter, record_.items());
}

void CanvasView::keyPressEvent(QKeyEvent* event) {
  const auto commands = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  const char32_t coarse = commands == Qt::ControlModifier ? characterWithControl(*event) : 0;
  if ((commands && coarse == 0) || forTheWindow(*event)) return event->ignore();
  const bool repeated = isHeld(*event) && event->timestamp() == releasedAt_;
  if (release_.isActive() && !repeated) releaseHeldKey();
  release_.stop();
  heldKey_ = HeldKey{coarse ? otherKeyCode(coarse) : keyCode(*event), event->nativeScanCode()};
  record_.userKeyDown(heldKey_->code);
  if (coarse) return record_.userControlKey(coarse);
  if (const char32_t typed = character(*event)) record_.userKey(typed);
}

// The toolkit doesn't always know a repeat's release for one: then the next press comes behind it
// with the same time stamp.
void CanvasView::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat() || !isHeld(*event)) return;
  releasedAt_ = event->timestamp();
  release_.start();
}

// The same key may bring another character at its release, when Shift was released before it.
bool CanvasView::isHeld(const QKeyEvent& event) const {
  return heldKey_ && heldKey_->scanCode == event.nativeScanCode();
}

void CanvasView::releaseHeldKey() {
  release_.stop();
  if (!heldKey_) return;
  const int code = heldKey_->code;
  heldKey_.reset();
  record_.userKeyUp(code);
}

// Only the left button picks a point.
void CanvasView::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  record_.userMouseDown();
  if (event->button() == Qt::RightButton) return record_.userMenu();
  if (event->button() != Qt::LeftButton) return;
  const QPointF point = (event->position() - origin_) / scale_;
  record_.userClick(qFloor(point.x()), qFloor(point.y()));
}

// The mouse opened its menu at the press.
void CanvasView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) return;
  const MenuPlace place(mapToGlobal(rect().center()));
  record_.userMenu();
}

void CanvasView::growWithRoom() {
  setMinimumSize(record_.width(), record_.height());
  setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

QSize CanvasView::sizeAt(int percent) const {
  return QSize(record_.width(), record_.height()) * percent / 100;
}

void CanvasView::setZoom(int percent) { setFixedSize(sizeAt(percent)); }

void CanvasView::onPlace(std::function<void()> follow) {
  follow();
  followers_.push_back(std::move(follow));
}

void CanvasView::resizeEvent(QResizeEvent*) {
  const QSizeF picture(record_.width(), record_.height());
  scale_ = std::min(width() / picture.width(), height() / picture.height());
  const QSizeF room = size() - picture * scale_;
  origin_ = QPointF(std::max(std::floor(room.width() / 2), 0.0),
                    std::max(std::floor(room.height() / 2), 0.0));
  for (const auto& follow : followers_) follow();
}

void CanvasView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  forwardFocusIn(record_);
}

void CanvasView::focusOutEvent(QFocusEvent* event) {
  // The release of a key that is held now would go to someone else.
  releaseHeldKey();
  QWidget::focusOutEvent(event);
  forwardFocusOut(record_, event->reason());
}

CanvasFrame::CanvasFrame(CanvasView* canvas) {
  constexpr int width = 2;
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setLineWidth(width);
  setFocusPolicy(Qt::NoFocus);
  const bool grows = canvas->maximumWidth() > canvas->minimumWidth();
  setSizePolicy(QSizePolicy::Preferred, grows ? QSizePolicy::Expanding : QSizePolicy::Maximum);
  setAlignment(Qt::AlignCenter);
  // A frame that is wider than the canvas looks like more of it.
  QPalette palette = viewport()->palette();
  palette.setColor(QPalette::Window, Qt::black);
  viewport()->setPalette(palette);
  setWidget(canvas);
  // One that can't grow stays as large as it is.
  setWidgetResizable(true);
  tapEvents(canvas, [this](QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    if (event->type() == QEvent::Resize) updateGeometry();
    return false;
  });
}

QSize CanvasFrame::sizeHint() const {
  return widget()->minimumSize() + QSize(frameWidth(), frameWidth()) * 2;
}

QSize CanvasFrame::minimumSizeHint() const {
  constexpr QSize smallest(160, 80);
  return smallest;
}

bool CanvasFrame::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QScrollArea::event(event);
  if (widget()->hasFocus()) {
    const int width = frameWidth();
    QPainter painter(this);
    painter.setPen(QPen(accentColour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(width / 2, width / 2, -width / 2, -width / 2));
  }
  return true;
}

QLabel* labelOn(CanvasView* canvas, const PlacedLabel& placed) {
  auto* const label = new QLabel(canvas);
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  if (placed.width > 0) label->setAlignment(Qt::AlignCenter);
  canvas->onPlace([canvas, label, placed] {
    QFont font = label->font();
    font.setPixelSize(qRound(PictureBox::usualFont * canvas->scale()));
    label->setFont(font);
    label->adjustSize();
    label->move(canvas->placeOf(QPointF(placed.x, placed.y)).toPoint());
    if (placed.width == 0) return;
    label->setFixedSize((QSizeF(placed.width, placed.height) * canvas->scale()).toSize());
  });
  bind(label, *placed.label);
  return label;
}
