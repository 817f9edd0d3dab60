// SPDX-License-Identifier: GPL-3.0-or-later
// Response tables: which method of a class answers which event. A class declares
//     static const owl::TResponseTable __entries;
//     const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;
// and defines them as
//     constinit const owl::TResponseTable View::__entries = {owl::Command<&View::CmMean>(14346), ...};
//     ... View::Find(...) const { return owl::FindFirst<Base>(__entries, *this, key); }
#pragma once

#include "host/toolkit/event_handler.h"

#include <span>
#include <type_traits>
#include <utility>

namespace owl {

struct TResponseEntry {
    EventKind kind;
    unsigned first; ///< numbers first to last are answered
    unsigned last;
    LPARAM (*respond)(TEventHandler& handler, const TEvent& event);

    constexpr bool Answers(const TEventKey& key) const {
        return kind == key.kind && key.id >= first && key.id <= last;
    }
};

/// As many entries as the definition lists.
using TResponseTable = TResponseEntry[]; // NOLINT(modernize-avoid-c-arrays): only an array counts for itself

/// The first of the entries that answers, else what the class Base finds.
template <typename Base>
const TResponseEntry* FindFirst(std::span<const TResponseEntry> entries, const Base& handler,
                                const TEventKey& key) {
    for (const TResponseEntry& entry : entries) {
        if (entry.Answers(key)) {
            return &entry;
        }
    }
    return handler.Base::Find(key);
}

namespace detail {

template <typename Method>
struct OwnerOf;
template <typename Class, typename Signature>
struct OwnerOf<Signature Class::*> {
    using Type = Class;
};

template <WindowEvent event>
struct ArgsOf {
    using Type = MouseArgs;
};
template <>
struct ArgsOf<WindowEvent::Size> {
    using Type = SizeArgs;
};
template <>
struct ArgsOf<WindowEvent::SetFocus> {
    using Type = FocusArgs;
};
template <>
struct ArgsOf<WindowEvent::KillFocus> {
    using Type = FocusArgs;
};
template <>
struct ArgsOf<WindowEvent::KeyDown> {
    using Type = KeyArgs;
};
template <>
struct ArgsOf<WindowEvent::MouseWheel> {
    using Type = WheelArgs;
};

/// The ways to run one method. The class is an argument of its own because GCC 12 gives a template over a
/// method alone external linkage, also when the class is local to a source: two of one name would be mixed
/// up.
template <typename Owner, auto Method>
struct Responder {
    /// \throw std::bad_cast for an entry in the table of a class that has not this method
    template <typename... Args>
    static LPARAM Call(TEventHandler& handler, Args&&... args) {
        static_assert(std::is_invocable_v<decltype(Method), Owner&, Args...>,
                      "the method does not take the arguments of this event");
        auto& owner = dynamic_cast<Owner&>(handler);
        if constexpr (std::is_void_v<std::invoke_result_t<decltype(Method), Owner&, Args...>>) {
            (owner.*Method)(std::forward<Args>(args)...);
            return 0;
        } else {
            return (owner.*Method)(std::forward<Args>(args)...);
        }
    }

    static LPARAM OnCommand(TEventHandler& handler, const TEvent& /*event*/) { return Call(handler); }
    static LPARAM OnCommandOfRange(TEventHandler& handler, const TEvent& event) {
        return Call(handler, event.key.id);
    }
    static LPARAM OnEnabler(TEventHandler& handler, const TEvent& event) {
        return Call(handler, *std::get<TCommandEnabler*>(event.args));
    }
    static LPARAM OnMessage(TEventHandler& handler, const TEvent& event) {
        const auto& args = std::get<MessageArgs>(event.args);
        return Call(handler, args.wParam, args.lParam);
    }
    template <typename Args>
    static LPARAM OnWindowEvent(TEventHandler& handler, const TEvent& event) {
        return Pass(handler, std::get<Args>(event.args));
    }

private:
    static LPARAM Pass(TEventHandler& handler, const SizeArgs& args) {
        return Call(handler, args.type, args.size);
    }
    static LPARAM Pass(TEventHandler& handler, const FocusArgs& args) { return Call(handler, args.other); }
    static LPARAM Pass(TEventHandler& handler, const KeyArgs& args) {
        return Call(handler, args.key, args.repeat, args.flags);
    }
    static LPARAM Pass(TEventHandler& handler, const MouseArgs& args) {
        return Call(handler, args.modKeys, args.point);
    }
    static LPARAM Pass(TEventHandler& handler, const WheelArgs& args) {
        return Call(handler, args.modKeys, args.delta, args.point);
    }
};

template <auto Method>
using ResponderOf = Responder<typename OwnerOf<decltype(Method)>::Type, Method>;

} // namespace detail

/// A command: void Method().
template <auto Method>
consteval TResponseEntry Command(unsigned id) {
    return {EventKind::Command, id, id, &detail::ResponderOf<Method>::OnCommand};
}

/// Commands of neighbouring numbers: void Method(unsigned id).
template <auto Method>
consteval TResponseEntry Command(unsigned first, unsigned last) {
    return {EventKind::Command, first, last, &detail::ResponderOf<Method>::OnCommandOfRange};
}

/// The enabler of commands: void Method(TCommandEnabler&).
template <auto Method>
consteval TResponseEntry CommandEnabler(unsigned first, unsigned last) {
    return {EventKind::Enabler, first, last, &detail::ResponderOf<Method>::OnEnabler};
}
template <auto Method>
consteval TResponseEntry CommandEnabler(unsigned id) {
    return CommandEnabler<Method>(id, id);
}

/// A message or notification: LPARAM Method(WPARAM, LPARAM), or void.
template <auto Method>
consteval TResponseEntry Message(unsigned id) {
    return {EventKind::Message, id, id, &detail::ResponderOf<Method>::OnMessage};
}

/// A window event, with the arguments that TWindow's method for it has.
template <WindowEvent event, auto Method>
consteval TResponseEntry On() {
    constexpr auto kId = static_cast<unsigned>(event);
    using Args = typename detail::ArgsOf<event>::Type;
    return {EventKind::Window, kId, kId, &detail::ResponderOf<Method>::template OnWindowEvent<Args>};
}

} // namespace owl
