#pragma once
// Stand-ins until the shared helpers are merged in; removed then.

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <QVariant>

#include <cmath>
#include <functional>
#include <optional>

inline QRectF QVCenteredRectInRect(QRectF rect, QRectF outer, bool integral)
{
    if (integral)
        rect.setSize(QSizeF(std::round(rect.width()), std::round(rect.height())));
    double x = (outer.width() - rect.width()) * 0.5 + outer.x();
    double y = (outer.height() - rect.height()) * 0.5 + outer.y();
    if (integral) {
        x = std::floor(x + 0.5);
        y = std::floor(y + 0.5);
    }
    return {x, y, rect.width(), rect.height()};
}

struct QVTextAttributes {
    std::optional<QFont> font;
    std::optional<QColor> foregroundColor;
    std::optional<Qt::Alignment> alignment;
};

inline qint64 gNSStringGeometricsTypesetterBehavior = -1;

inline QSizeF sizeForWidth(const QString &string, float width, float height,
                           const QVTextAttributes &attributes)
{
    if (string.isEmpty())
        return {};
    QFontMetricsF fm(attributes.font.value_or(QFont()));
    QRectF r =
        fm.boundingRect(QRectF(0, 0, width, height), Qt::TextWordWrap | Qt::AlignHCenter, string);
    gNSStringGeometricsTypesetterBehavior = -1;
    return r.size();
}

inline void drawWithRect(QPainter &painter, const QString &string, const QRectF &rect,
                         const QVTextAttributes &attributes)
{
    painter.save();
    if (attributes.font)
        painter.setFont(*attributes.font);
    if (attributes.foregroundColor)
        painter.setPen(*attributes.foregroundColor);
    painter.drawText(rect, int(attributes.alignment.value_or(Qt::AlignLeft)) | Qt::TextWordWrap,
                     string);
    painter.restore();
}

inline bool isNotEmpty(const QString &s)
{
    return !s.isEmpty();
}
inline bool isNotEmpty(const QByteArray &s)
{
    return !s.isEmpty();
}
template <class T> inline bool isNotEmpty(const QList<T> &s)
{
    return !s.isEmpty();
}

class QVInvocation
{
public:
    template <class Target, class Arg>
    static QVInvocation invocationWithTarget(Target *target, void (Target::*member)(Arg))
    {
        QVInvocation inv;
        inv.m_call = [target, member](const QVariant &v) {
            (target->*member)(v.value<std::decay_t<Arg>>());
        };
        return inv;
    }
    void setArgument(const QVariant &v, int index)
    {
        if (index == 2)
            m_arg = v;
    }
    void invoke() const { m_call(m_arg); }

private:
    std::function<void(const QVariant &)> m_call;
    QVariant m_arg;
};
