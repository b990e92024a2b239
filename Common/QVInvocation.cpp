#include "QVInvocation.h"

void QVInvocation::setArgument(const QVariant &value, int index)
{
    const qsizetype i = qsizetype(index) - kFirstArgumentIndex;
    if (i >= 0 && i < m_arguments.size())
        m_arguments[i] = value;
}

QVariant QVInvocation::argument(int index) const
{
    return m_arguments.value(qsizetype(index) - kFirstArgumentIndex);
}

void QVInvocation::invoke() const
{
    if (!m_hasTarget || !m_call)
        return;
    if (m_guarded && !m_guard)
        return;
    m_call(m_arguments);
}
