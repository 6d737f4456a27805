#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace vmk {

// Owner of one reference to a COM object.
template <typename Interface>
class ComPointer {
  public:
    ComPointer() noexcept = default;
    // Shares: adds a reference of its own.
    explicit ComPointer(Interface* shared) noexcept : m_object(shared) {
        if (m_object) m_object->AddRef();
    }
    ComPointer(ComPointer&& other) noexcept : m_object(other.detach()) {}
    ComPointer& operator=(ComPointer&& other) noexcept {
        if (this != &other) attach(other.detach());
        return *this;
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;
    ~ComPointer() { reset(); }

    explicit operator bool() const noexcept { return m_object != nullptr; }
    Interface* operator->() const noexcept { return m_object; }
    Interface& operator*() const noexcept { return *m_object; }
    Interface* get() const noexcept { return m_object; }

    // Room for a function that hands out a reference; the one held before is released.
    Interface** put() noexcept {
        reset();
        return &m_object;
    }
    void** PutVoid() noexcept { return reinterpret_cast<void**>(put()); }

    // Takes over a reference that the caller owns.
    void attach(Interface* owned) noexcept {
        reset();
        m_object = owned;
    }
    Interface* detach() noexcept { return std::exchange(m_object, nullptr); }

    // The member is null before the release, which may run code that looks at it. That objects free
    // themselves in their last Release, the analyser does not follow.
    void reset() noexcept {
        if (Interface* const object = detach()) object->Release();
    }  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

  private:
    Interface* m_object = nullptr;
};

}  // namespace vmk
