#pragma once

// Replaces the global operators new and delete by ones that count. Replacements cannot be inline, so exactly
// one file of an executable includes this.

#include "fakes/AllocationCounter.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace velmora {
namespace {

std::atomic<std::size_t> g_allocations{0};

void* countedAllocation(std::size_t size) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void* countedAllocation(std::size_t size, std::align_val_t alignment) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    const auto boundary = static_cast<std::size_t>(alignment);
    const std::size_t rounded = (size + boundary - 1) / boundary * boundary;
    if (void* memory = std::aligned_alloc(boundary, rounded == 0 ? boundary : rounded)) return memory;
    throw std::bad_alloc();
}

}  // namespace

std::size_t allocationCount() {
    return g_allocations.load(std::memory_order_relaxed);
}

}  // namespace velmora

void* operator new(std::size_t size) {
    return velmora::countedAllocation(size);
}
void* operator new[](std::size_t size) {
    return velmora::countedAllocation(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return velmora::countedAllocation(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return velmora::countedAllocation(size, alignment);
}
// The library's own pass on to the ones above, but those of the address sanitizer do not, and what they give
// must not come to the deletes below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    velmora::g_allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    velmora::g_allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
