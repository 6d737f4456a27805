#pragma once

#include <windows.h>

#include <utility>

namespace vmk {

// Owner of one resource that is named by a plain value. Traits give the value's type, the value that means
// "none" and the closer:
//
//   struct KeyTraits {
//       using Value = HKEY;
//       static constexpr Value None() noexcept { return nullptr; }
//       static void Close(Value value) noexcept { RegCloseKey(value); }
//   };
template <typename Traits>
class UniqueHandle {
  public:
    using Value = typename Traits::Value;

    UniqueHandle() noexcept = default;
    explicit UniqueHandle(Value value) noexcept : m_value(value) {}
    UniqueHandle(UniqueHandle&& other) noexcept : m_value(other.detach()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) attach(other.detach());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { reset(); }

    explicit operator bool() const noexcept { return m_value != Traits::None(); }
    Value get() const noexcept { return m_value; }

    // Room for a function that hands out a new resource; what was held before is closed.
    Value* put() noexcept {
        reset();
        return &m_value;
    }

    void attach(Value value) noexcept {
        reset();
        m_value = value;
    }

    Value detach() noexcept { return std::exchange(m_value, Traits::None()); }

    void reset() noexcept {
        if (*this) Traits::Close(detach());
    }

  private:
    Value m_value = Traits::None();
};

}  // namespace vmk
