#pragma once
// A call bound to a target and one of its member functions, whose arguments are set later:
// the deferred message a timer or a queued call fires. Arguments are numbered from 2 (the
// first argument is index 2) and held as QVariant copies, so the invocation keeps them alive
// until it is invoked. A QObject target is watched with a QPointer: once it is deleted,
// invoke() does nothing. Other targets must outlive the invocation.

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QVariantList>

#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

class QVInvocation
{
public:
    // Index of the first argument.
    static constexpr int kFirstArgumentIndex = 2;

    template <class T, class... A>
    static QVInvocation invocationWithTarget(T *target, void (T::*selector)(A...))
    {
        return bind(
            target,
            [target, selector](const QVariantList &arguments) {
                call(target, selector, arguments, std::index_sequence_for<A...>());
            },
            sizeof...(A));
    }
    template <class T, class... A>
    static QVInvocation invocationWithTarget(T *target, void (T::*selector)(A...) const)
    {
        return bind(
            target,
            [target, selector](const QVariantList &arguments) {
                call(target, selector, arguments, std::index_sequence_for<A...>());
            },
            sizeof...(A));
    }

    // Stores the argument at index (2 for the first); an index outside the member's arguments
    // is ignored. An argument never set is passed default-constructed.
    void setArgument(const QVariant &value, int index);
    QVariant argument(int index) const;

    // Calls the member on the target with the arguments set so far; nothing when there is no
    // target or a QObject target has been deleted.
    void invoke() const;

private:
    using Call = std::function<void(const QVariantList &)>;

    template <class T> static QVInvocation bind(T *target, Call call, qsizetype argumentCount)
    {
        QVInvocation invocation;
        invocation.m_hasTarget = target != nullptr;
        if constexpr (std::is_base_of_v<QObject, T>) {
            invocation.m_guarded = true;
            invocation.m_guard = target;
        }
        invocation.m_call = std::move(call);
        invocation.m_arguments.resize(argumentCount);
        return invocation;
    }

    template <class T, class M, std::size_t... I>
    static void call(T *target, M selector, const QVariantList &arguments,
                     std::index_sequence<I...>)
    {
        using Arguments = typename Signature<M>::Arguments;
        (target->*selector)(qvariant_cast<std::remove_cvref_t<std::tuple_element_t<I, Arguments>>>(
            arguments.at(qsizetype(I)))...);
    }

    template <class M> struct Signature;
    template <class T, class... A> struct Signature<void (T::*)(A...)> {
        using Arguments = std::tuple<A...>;
    };
    template <class T, class... A> struct Signature<void (T::*)(A...) const> {
        using Arguments = std::tuple<A...>;
    };

    Call m_call;
    QVariantList m_arguments;
    bool m_hasTarget = false;
    bool m_guarded = false;
    QPointer<QObject> m_guard;
};
