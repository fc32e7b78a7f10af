// SPDX-License-Identifier: MIT
#pragma once

namespace TES {

// The accessors of a service with one instance, written once: T derives from Singleton<T>,
// sets _instance in its constructor and clears it in its destructor. i() is for callers that
// know the instance exists (it dereferences whatever _instance holds); ip() answers null when
// there is none, and destroy() deletes the instance if there is one.
//
// _instance must be one variable shared by the host and every plug-in, so each service
// declares the exported specialization after its class,
//     template<> TES_EXPORT Service *Singleton<Service>::_instance;
// and defines it in its source file.
template<class T>
class Singleton
{
public:
    static T &i() { return *_instance; }
    static T *ip() { return _instance; }
    static void destroy() { delete _instance; }

    static T *_instance;

protected:
    Singleton() = default;
    ~Singleton() = default;
};

} // namespace TES
