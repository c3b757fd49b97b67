#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace keelbright {

template <typename Signature> class UniqueFunction;

/// Owns one callable and can be moved but not copied, so that the callable may capture what can only
/// be moved, such as a `std::unique_ptr`. It is `std::move_only_function` in small: libc++, and with it
/// macOS, has none. Each instance belongs to one thread at a time.
template <typename Result, typename... Arguments> class UniqueFunction<Result(Arguments...)>
{
public:
    /// Empty.
    UniqueFunction() = default;

    UniqueFunction(std::nullptr_t) {}

    /// Takes the callable over. Implicit, so that a lambda can be handed where one is asked for.
    template <typename Callable>
        requires(!std::is_same_v<std::remove_cvref_t<Callable>, UniqueFunction> &&
                 std::is_invocable_r_v<Result, std::decay_t<Callable>&, Arguments...>)
    UniqueFunction(Callable&& callable)
        : m_callable(
              std::make_unique<OwnedCallable<std::decay_t<Callable>>>(std::forward<Callable>(callable)))
    {}

    /// Whether there is something to call; false after having been moved from.
    explicit operator bool() const { return m_callable != nullptr; }

    /// Must not be called while empty.
    Result operator()(Arguments... arguments)
    {
        return m_callable->call(std::forward<Arguments>(arguments)...);
    }

private:
    struct AnyCallable
    {
        virtual ~AnyCallable() = default;
        virtual Result call(Arguments&&... arguments) = 0;
    };

    template <typename Type> struct OwnedCallable final : AnyCallable
    {
        explicit OwnedCallable(Type&& callable)
            : owned(std::move(callable))
        {}

        explicit OwnedCallable(const Type& callable)
            : owned(callable)
        {}

        Result call(Arguments&&... arguments) override
        {
            if constexpr (std::is_void_v<Result>)
                std::invoke(owned, std::forward<Arguments>(arguments)...);
            else
                return std::invoke(owned, std::forward<Arguments>(arguments)...);
        }

        Type owned;
    };

    std::unique_ptr<AnyCallable> m_callable;
};

} // namespace keelbright
