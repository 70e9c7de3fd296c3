#pragma once

#include <atomic>
#include <unknwn.h>
#include <windows.h>

namespace pevrix {

// A COM object with one interface: counts its references, starting with its maker's, and deletes
// itself with the last one.
template <typename Interface>
class CountedObject : public Interface
{
public:
    CountedObject() = default;
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;
    virtual ~CountedObject() = default;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == __uuidof(IUnknown) || implements(id);
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    // Also true of the interfaces that Interface is derived from, where somebody asks for them.
    [[nodiscard]] virtual bool implements(REFIID id) const { return id == __uuidof(Interface); }

private:
    std::atomic<ULONG> m_references = 1;
};

} // namespace pevrix
