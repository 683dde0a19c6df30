/* SPDX-License-Identifier: Apache-2.0 */
// The one shape of an entry point that works on a handle.
//
// An entry point calls one method of the object behind its handle, or
// answers its failure value when the handle is NULL. The method names the
// kind of object, so documents and SAX2 parsers share the one helper:
//   return Call(hDocument, 0, &CZUXMLDocument::LoadFromFile, AsXml(szPath));
//   return Call(hParser, 0, &CZUXMLSax2::LoadFromFile, AsXml(szFileName), nMode);
// An operation on a node the caller names goes through CallOnNode, which
// also answers the failure value for a NULL node and for an object that
// holds no document the node could belong to. Nothing else is checked here:
// what else an operation rejects, it rejects itself. Both tell the object
// of the call first (CZUXMLHandle::OnEntry).
#pragma once

#include <type_traits>
#include <utility>

#include "frame/CZUXMLHandle.h"

namespace zuxml {

// The failure value of an operation that answers nothing.
struct NoAnswer {};
inline constexpr NoAnswer kNoAnswer{};

template <class Method> struct MethodTraits;
template <class R, class C, class... A> struct MethodTraits<R (C::*)(A...)> {
    using Object = C;
    using Result = R;
};
template <class R, class C, class... A> struct MethodTraits<R (C::*)(A...) const> : MethodTraits<R (C::*)(A...)> {};

// The object behind handle, of the kind method belongs to; NULL for NULL.
template <class Method> typename MethodTraits<Method>::Object *ObjectFor(void *handle, Method) {
    return FromHandle<typename MethodTraits<Method>::Object>(handle);
}

template <class Failure, class Method, class... Args>
auto Call(void *handle, Failure failure, Method method, Args &&...args) {
    using Result = typename MethodTraits<Method>::Result;
    auto *object = ObjectFor(handle, method);
    if (object)
        object->OnEntry();
    if constexpr (std::is_void_v<Result>) {
        static_assert(std::is_same_v<Failure, NoAnswer>, "an operation that answers nothing fails with kNoAnswer");
        static_cast<void>(failure);
        if (object)
            (object->*method)(std::forward<Args>(args)...);
    } else {
        return object ? (object->*method)(std::forward<Args>(args)...) : static_cast<Result>(failure);
    }
}

template <class Failure, class Method, class Node, class... Args>
auto CallOnNode(void *handle, Failure failure, Method method, Node *node, Args &&...args) {
    using Result = typename MethodTraits<Method>::Result;
    auto *object = ObjectFor(handle, method);
    if (object)
        object->OnEntry();
    if (!object || !node || !object->HasDocument())
        return static_cast<Result>(failure);
    return (object->*method)(node, std::forward<Args>(args)...);
}

} // namespace zuxml
