#include "drawtool/ToolRegistry.h"

#include <new>

namespace {

ToolRegistry g_tools;

class ExclusiveLock {
public:
    explicit ExclusiveLock(SRWLOCK& lock) : m_lock(lock) { ::AcquireSRWLockExclusive(&lock); }
    ~ExclusiveLock() { ::ReleaseSRWLockExclusive(&m_lock); }
    ExclusiveLock(const ExclusiveLock&) = delete;
    ExclusiveLock& operator=(const ExclusiveLock&) = delete;

private:
    SRWLOCK& m_lock;
};

} // namespace

ToolRegistry& Tools() { return g_tools; }

ToolBinding::~ToolBinding()
{
    if (!tool)
        return;
    // A pen with a handle means Initialize ran and Finalize did not: put the
    // DC back before the tool goes. After Finalize the tool has no GdiSet, so
    // deleting it through its destructor is safe.
    if (CPen* pen = tool->GetPen(); pen && pen->GetSafeHandle())
        tool->Finalize();
    delete tool;
}

ToolRegistry::Slot* ToolRegistry::SlotOf(std::uint64_t handle) const
{
    const std::uint64_t index = (handle & 0xFFFFFFFFu) - 1;  // slot 0 wraps and is refused
    if (index >= std::uint64_t{kChunks} * kChunkSize)
        return nullptr;
    Slot* chunk = m_chunks[index / kChunkSize].load(std::memory_order_acquire);
    return chunk ? &chunk[index % kChunkSize] : nullptr;
}

DrawToolHandle ToolRegistry::Add(std::unique_ptr<ToolBinding> binding)
{
    ExclusiveLock guard(m_lock);
    std::uint32_t index = 0;
    if (!m_free.empty()) {
        index = m_free.back();
        m_free.pop_back();
    } else {
        if (m_used == kChunks * kChunkSize)
            return nullptr;
        index = m_used;
        if (index % kChunkSize == 0) {
            Slot* chunk = new (std::nothrow) Slot[kChunkSize];
            if (!chunk)
                return nullptr;
            m_chunks[index / kChunkSize].store(chunk, std::memory_order_release);
        }
        ++m_used;
    }
    Slot& slot = *SlotOf(index + 1);
    slot.generation = slot.generation == 0xFFFFFFFFu ? 1 : slot.generation + 1;
    slot.binding = binding.release();
    const std::uint64_t handle = (std::uint64_t{slot.generation} << 32) | (index + 1);
    slot.handle.store(handle, std::memory_order_release);
    return reinterpret_cast<DrawToolHandle>(handle);
}

std::unique_ptr<ToolBinding> ToolRegistry::Remove(DrawToolHandle handle)
{
    const std::uint64_t value = reinterpret_cast<std::uintptr_t>(handle);
    ExclusiveLock guard(m_lock);
    Slot* slot = SlotOf(value);
    if (!slot || slot->handle.load(std::memory_order_relaxed) != value)
        return nullptr;
    slot->handle.store(0, std::memory_order_release);
    std::unique_ptr<ToolBinding> binding(slot->binding);
    slot->binding = nullptr;
    try {
        m_free.push_back(static_cast<std::uint32_t>((value & 0xFFFFFFFFu) - 1));
    } catch (...) {
        // A slot that cannot be listed for reuse stays unused.
    }
    return binding;
}

CMoruDrawTool* ToolRegistry::Find(DrawToolHandle handle) const
{
    const std::uint64_t value = reinterpret_cast<std::uintptr_t>(handle);
    const Slot* slot = SlotOf(value);
    if (!slot || slot->handle.load(std::memory_order_acquire) != value)
        return nullptr;
    return slot->binding->tool;
}
