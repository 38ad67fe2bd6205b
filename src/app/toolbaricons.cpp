#include "toolbaricons.h"

#include <QImage>
#include <QMap>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace {

// Pictures on a 24 x 24 grid.
using Draw = std::function<void(QPainter&)>;

const QColor Ink(40, 60, 90);
const QColor Paper(250, 250, 245);
const QColor Accent(30, 130, 60);
const QColor Warn(190, 40, 40);

void pen(QPainter& p, const QColor& c, qreal width = 1.6) {
    p.setPen(QPen(c, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void person(QPainter& p, qreal x, qreal y) {
    pen(p, Ink);
    p.setBrush(QColor(120, 160, 210));
    p.drawEllipse(QPointF(x, y - 5), 3.5, 3.5);
    QPainterPath body;
    body.moveTo(x - 6.5, y + 8);
    body.cubicTo(x - 6.5, y, x + 6.5, y, x + 6.5, y + 8);
    body.closeSubpath();
    p.drawPath(body);
}

void plus(QPainter& p, qreal x, qreal y) {
    pen(p, Accent, 2.4);
    p.drawLine(QPointF(x - 3.5, y), QPointF(x + 3.5, y));
    p.drawLine(QPointF(x, y - 3.5), QPointF(x, y + 3.5));
}

void cross(QPainter& p, qreal x, qreal y) {
    pen(p, Warn, 2.4);
    p.drawLine(QPointF(x - 3, y - 3), QPointF(x + 3, y + 3));
    p.drawLine(QPointF(x - 3, y + 3), QPointF(x + 3, y - 3));
}

void pencil(QPainter& p, qreal x, qreal y) {
    pen(p, QColor(150, 90, 20), 2.6);
    p.drawLine(QPointF(x - 4, y + 4), QPointF(x + 4, y - 4));
    pen(p, Ink, 1.2);
    p.drawLine(QPointF(x - 5, y + 5), QPointF(x - 4, y + 4));
}

void magnifier(QPainter& p, qreal x, qreal y) {
    pen(p, Ink, 2);
    p.setBrush(QColor(220, 235, 250));
    p.drawEllipse(QPointF(x, y), 4.5, 4.5);
    pen(p, Ink, 2.8);
    p.drawLine(QPointF(x + 3.3, y + 3.3), QPointF(x + 7, y + 7));
}

void monitor(QPainter& p) {
    pen(p, Ink);
    p.setBrush(QColor(200, 220, 240));
    p.drawRoundedRect(QRectF(3, 4, 16, 11), 1.5, 1.5);
    p.drawLine(QPointF(11, 15), QPointF(11, 18));
    p.drawLine(QPointF(7, 19), QPointF(15, 19));
}

void handset(QPainter& p) {
    pen(p, Ink, 1.4);
    p.setBrush(QColor(60, 60, 60));
    QPainterPath h;
    h.moveTo(4, 8);
    h.cubicTo(4, 3, 18, 3, 18, 8);
    h.lineTo(14, 10);
    h.lineTo(13, 7.5);
    h.cubicTo(11.5, 7, 10.5, 7, 9, 7.5);
    h.lineTo(8, 10);
    h.closeSubpath();
    p.drawPath(h);
    p.setBrush(Paper);
    p.drawRoundedRect(QRectF(5, 11, 12, 9), 1.5, 1.5);
}

void disc(QPainter& p) {
    pen(p, Ink);
    p.setBrush(QColor(210, 210, 225));
    p.drawEllipse(QPointF(11, 12), 8, 8);
    p.setBrush(Paper);
    p.drawEllipse(QPointF(11, 12), 2, 2);
}

void book(QPainter& p, const QColor& cover) {
    pen(p, Ink);
    p.setBrush(cover);
    p.drawRoundedRect(QRectF(4, 3, 14, 18), 1.5, 1.5);
    p.setBrush(Paper);
    p.drawRect(QRectF(7, 6, 8, 4));
}

void document(QPainter& p) {
    pen(p, Ink);
    p.setBrush(Paper);
    QPainterPath d;
    d.moveTo(5, 3);
    d.lineTo(14, 3);
    d.lineTo(19, 8);
    d.lineTo(19, 21);
    d.lineTo(5, 21);
    d.closeSubpath();
    p.drawPath(d);
    for (qreal y : {10.0, 13.0, 16.0})
        p.drawLine(QPointF(8, y), QPointF(16, y));
}

void arrows(QPainter& p) {
    pen(p, Accent, 2);
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(12, 12, 9, 9), 30 * 16, 270 * 16);
    p.drawLine(QPointF(20.5, 13), QPointF(20.5, 16.5));
}

struct Button {
    const char* theme;
    Draw draw;
};

const QMap<QString, Button>& buttons() {
    static const QMap<QString, Button> map{
        {"frmemployee",
         {"contact-new",
          [](QPainter& p) {
              person(p, 10, 11);
              plus(p, 18.5, 6);
          }}},
        {"frmesearch",
         {"system-search",
          [](QPainter& p) {
              person(p, 8, 11);
              magnifier(p, 15, 14);
          }}},
        {"frmdelete",
         {"list-remove-user",
          [](QPainter& p) {
              person(p, 10, 11);
              cross(p, 18.5, 6);
          }}},
        {"frmaddcall",
         {"call-start",
          [](QPainter& p) {
              handset(p);
              plus(p, 19, 17);
          }}},
        {"frmupdatecall",
         {"document-edit",
          [](QPainter& p) {
              handset(p);
              arrows(p);
          }}},
        {"frmaddcomputer",
         {"computer",
          [](QPainter& p) {
              monitor(p);
              plus(p, 19, 5);
          }}},
        {"frmcompsrch",
         {"document-properties",
          [](QPainter& p) {
              monitor(p);
              pencil(p, 17, 16);
          }}},
        {"frmaddsoftware",
         {"system-software-install",
          [](QPainter& p) {
              disc(p);
              plus(p, 19, 5);
          }}},
        {"frmteldir",
         {"x-office-address-book",
          [](QPainter& p) {
              book(p, QColor(170, 60, 50));
              pen(p, Ink, 1.2);
              for (qreal y : {12.0, 14.5, 17.0})
                  p.drawLine(QPointF(7, y), QPointF(15, y));
          }}},
        {"frmtraining",
         {"appointment-new",
          [](QPainter& p) {
              book(p, QColor(60, 110, 170));
              plus(p, 19, 18);
          }}},
        {"traininglist",
         {"x-office-document",
          [](QPainter& p) {
              document(p);
              pencil(p, 17, 16);
          }}},
    };
    return map;
}

QImage faded(const QImage& normal) {
    QImage grey = normal.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(grey.scanLine(y));
        for (int x = 0; x < grey.width(); ++x) {
            const int g = qGray(line[x]) / 2 + 100;
            line[x] = qRgba(g, g, g, qAlpha(line[x]) * 2 / 5);
        }
    }
    return grey;
}

QImage painted(const Draw& draw, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 24.0, size / 24.0);
    draw(p);
    return image;
}

} // namespace

QString toolbarThemeName(const QString& key) {
    const auto it = buttons().find(key);
    return it == buttons().end() ? QString() : QString::fromLatin1(it->theme);
}

QIcon toolbarIcon(const QString& key) {
    const auto it = buttons().find(key);
    if (it == buttons().end()) return {};
    const QIcon themed = QIcon::fromTheme(QString::fromLatin1(it->theme));
    QIcon icon;
    for (int size : {16, 22, 24, 32, 48}) {
        const QImage normal =
            themed.isNull() ? painted(it->draw, size) : themed.pixmap(size, size).toImage();
        icon.addPixmap(QPixmap::fromImage(normal), QIcon::Normal);
        icon.addPixmap(QPixmap::fromImage(faded(normal)), QIcon::Disabled);
    }
    return icon;
}
