#pragma once
// The first element of a list, or nothing (a null pointer, an invalid QVariant, a null
// string: the value-initialised element) for an empty list, without a range error.

#include <QList>

template <class T> T firstObject(const QList<T> &list)
{
    return list.isEmpty() ? T() : list.constFirst();
}
