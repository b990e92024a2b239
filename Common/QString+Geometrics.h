#pragma once
// How large a text becomes when it is laid out in a given width or height, and drawing it laid
// out the same way, so that a measured size and the drawn text agree.
//
// Text layout is Qt's QTextLayout: lines wrap at word boundaries (a word longer than the width
// breaks anywhere), "\n", "\r\n" and "\r" end lines, and nothing is hyphenated (Qt's layout
// never hyphenates). A line is laid out only when it fits entirely in the height. The measured
// size is the used size: the widest line's text width and the height of the lines laid out,
// without the empty line that follows a final line break.

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>

class QPainter;

// The attributes of a text. Without a font the application font (QGuiApplication::font()) is
// used; without a colour the text is drawn black; without an alignment lines start at the left.
struct QVTextAttributes {
    std::optional<QFont> font;
    std::optional<QColor> foregroundColor;
    std::optional<Qt::Alignment> alignment; // only the horizontal part counts
};

// A text with its attributes.
struct QVAttributedString {
    QString string;
    QVTextAttributes attributes;
};

// The typesetter behaviour for the next measurement; -1 (the initial value) is the latest
// behaviour. Every measurement of a non-empty text resets it to -1, so a value set by a caller
// lasts for one measurement only. Qt has a single typesetter: other values are accepted and
// change nothing.
extern qint64 gNSStringGeometricsTypesetterBehavior;

// The used size of the text laid out in width x height; the zero size for an empty text (the
// typesetter behaviour is then left as it is).
QSizeF sizeForWidth(const QVAttributedString &string, float width, float height);
// The height for a width, with an unlimited height (the largest float).
float heightForWidth(const QVAttributedString &string, float width);
// The width for a height, with an unlimited width (the largest float).
float widthForHeight(const QVAttributedString &string, float height);

QSizeF sizeForWidth(const QString &string, float width, float height,
                    const QVTextAttributes &attributes);
float heightForWidth(const QString &string, float width, const QVTextAttributes &attributes);
float widthForHeight(const QString &string, float height, const QVTextAttributes &attributes);

// With a font alone. A null font logs "[QString sizeForWidth]: Error: cannot compute size with
// nil font" and gives the zero size.
QSizeF sizeForWidth(const QString &string, float width, float height, const QFont *font);
float heightForWidth(const QString &string, float width, const QFont *font);
float widthForHeight(const QString &string, float height, const QFont *font);

// Draws the text laid out in rect exactly as sizeForWidth lays it out for rect's width and
// height. rect is in the painter's own (y-down) coordinates: the first line is at its top.
// The typesetter behaviour is neither read nor reset.
void drawWithRect(QPainter &painter, const QString &string, const QRectF &rect,
                  const QVTextAttributes &attributes);
void drawWithRect(QPainter &painter, const QVAttributedString &string, const QRectF &rect);
