// A vector whose first elements lie in the object itself, for short lists on the way of every call.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace otxns {

// Neither copied nor moved. T's move constructor must not throw.
template <class T, std::size_t InlineCount>
class SmallVector {
public:
    SmallVector() noexcept = default;
    SmallVector(const SmallVector&) = delete;
    SmallVector& operator=(const SmallVector&) = delete;
    ~SmallVector() {
        std::destroy_n(begin_, size_);
        if (!isInline()) std::allocator<T>().deallocate(begin_, capacity_);
    }

    T* begin() noexcept { return begin_; }
    T* end() noexcept { return begin_ + size_; }
    const T* begin() const noexcept { return begin_; }
    const T* end() const noexcept { return begin_ + size_; }
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    T& back() noexcept { return begin_[size_ - 1]; }
    T& operator[](std::size_t index) noexcept { return begin_[index]; }
    const T& operator[](std::size_t index) const noexcept { return begin_[index]; }

    // The arguments aren't elements of this vector.
    template <class... Arguments>
    void emplace_back(Arguments&&... arguments) {
        if (size_ == capacity_) [[unlikely]]
            grow();
        std::construct_at(begin_ + size_, std::forward<Arguments>(arguments)...);
        ++size_;
    }
    void push_back(T element) { emplace_back(std::move(element)); }

    // Moves the last element to the index, and those from there on behind it.
    void moveLastTo(std::size_t index) { std::rotate(begin_ + index, begin_ + size_ - 1, begin_ + size_); }

private:
    bool isInline() const noexcept { return capacity_ == InlineCount; }

    void grow() {
        T* const wider = std::allocator<T>().allocate(capacity_ * 2);
        std::uninitialized_move_n(begin_, size_, wider);
        std::destroy_n(begin_, size_);
        if (!isInline()) std::allocator<T>().deallocate(begin_, capacity_);
        begin_ = wider;
        capacity_ *= 2;
    }

    alignas(T) std::byte room_[sizeof(T) * InlineCount];
    T* begin_ = reinterpret_cast<T*>(room_);
    std::size_t size_ = 0;
    std::size_t capacity_ = InlineCount;
};

}  // namespace otxns
