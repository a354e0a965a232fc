#include "hosts/python/values/object_release.h"

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

#include "hosts/python/errors.h"

namespace python_host {

namespace {

struct WaitingObjects {
    std::mutex mutex;
    std::vector<PyObject*> objects;
    std::atomic<bool> any{false};
};

/// Never destroyed: a thread may still give up an object while static objects are torn down.
WaitingObjects& waiting() {
    static WaitingObjects& objects = *new WaitingObjects;
    return objects;
}

/// An object for which there is no memory to wait is never freed; that is the lesser harm.
void wait(PyObject* object) noexcept {
    try {
        const std::lock_guard lock(waiting().mutex);
        waiting().objects.push_back(object);
        waiting().any.store(true, std::memory_order_release);
    } catch (...) {
    }
}

}  // namespace

void releaseObject(PyObject* object) noexcept {
    if (Py_IsInitialized() == 0) {
        return;
    }
    if (PyGILState_Check() == 0) {
        wait(object);
        return;
    }
    const PendingErrorGuard pending;
    Py_DECREF(object);
}

void releaseWaitingObjects() noexcept {
    if (!waiting().any.load(std::memory_order_acquire)) {
        return;
    }
    std::vector<PyObject*> objects;
    {
        const std::lock_guard lock(waiting().mutex);
        objects = std::exchange(waiting().objects, {});
        waiting().any.store(false, std::memory_order_release);
    }
    for (PyObject* object : objects) {
        Py_DECREF(object);
    }
}

}  // namespace python_host
