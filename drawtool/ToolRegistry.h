// The live tools of the C interface and the opaque handles that name them.
#pragma once

#include "drawtool/DrawTool.h"
#include "drawtool/DrawToolC.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

/// What a handle stands for: the tool and the framework wrappers of the
/// host's window and DC that it borrows.
struct ToolBinding {
    CWnd wnd;
    std::unique_ptr<CBorrowedDC> dc;  ///< null for a null HDC: the tool's inert DC
    CMoruDrawTool* tool = nullptr;

    ToolBinding() = default;
    ToolBinding(const ToolBinding&) = delete;
    ToolBinding& operator=(const ToolBinding&) = delete;
    /// Finalizes a tool still initialized, then deletes it.
    ~ToolBinding();
};

/// Handles are a slot number (low 32 bits, from 1) and the slot's generation
/// (high 32 bits, from 1), never addresses: a destroyed handle stays unknown
/// after its slot or its memory is reused, until one slot has been reused
/// 2^32 times. Lookups take no lock (a drawing call costs a few loads);
/// adding and removing take a slim lock. Up to 2^20 tools live at once.
class ToolRegistry {
public:
    /// The binding's handle; null (and the binding freed) when every slot is
    /// taken or memory runs out.
    DrawToolHandle Add(std::unique_ptr<ToolBinding> binding);
    /// The binding taken out of the registry; null for an unknown handle.
    std::unique_ptr<ToolBinding> Remove(DrawToolHandle handle);
    /// The handle's tool, null for an unknown handle. A handle must not be
    /// destroyed while another thread uses it.
    CMoruDrawTool* Find(DrawToolHandle handle) const;

private:
    static constexpr std::uint32_t kChunkSize = 256;
    static constexpr std::uint32_t kChunks = 4096;
    struct Slot {
        std::atomic<std::uint64_t> handle{0};  ///< the live handle, 0 while free
        ToolBinding* binding = nullptr;
        std::uint32_t generation = 0;
    };
    /// The slot a handle names, if its chunk exists (it may be free or reused).
    Slot* SlotOf(std::uint64_t handle) const;

    // Chunks are made as slots are first needed and kept for the process's
    // life, so a lookup never meets freed memory.
    std::atomic<Slot*> m_chunks[kChunks] = {};
    SRWLOCK m_lock = SRWLOCK_INIT;
    std::vector<std::uint32_t> m_free;  ///< slots to reuse
    std::uint32_t m_used = 0;           ///< slots handed out so far
};

/// The module's one registry.
ToolRegistry& Tools();
