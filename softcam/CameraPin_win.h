#pragma once

#include "softcam/ComServer_win.h"
#include "softcam/Lock_win.h"
#include "softcam/MediaType_win.h"
#include "softcam/PictureStream_win.h"

#include <memory>
#include <optional>
#include <vector>
#include <wrl/client.h>

namespace pevrix {

class CameraFilter;

inline constexpr wchar_t kPinName[] = L"Capture";

// The filter's output. It is a part of its filter, whose references it counts.
//
// It offers the present camera's size, then the usual ones, each in all layouts, and accepts every
// size and rate: programs keep the format that they were given once, and pictures of another camera
// are scaled to it.
class CameraPin final : public IPin,
                        public IAMStreamConfig,
                        public IKsPropertySet,
                        public IQualityControl
{
public:
    explicit CameraPin(CameraFilter& filter);
    CameraPin(const CameraPin&) = delete;
    CameraPin& operator=(const CameraPin&) = delete;

    // For the filter, which holds its state lock. A pin that is not connected has no stream, and
    // that is no failure.
    [[nodiscard]] HRESULT startStream();
    void runStream(Microsoft::WRL::ComPtr<IReferenceClock> clock, REFERENCE_TIME start);
    void pauseStream();
    void stopStream();

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    // IPin
    STDMETHODIMP Connect(IPin* peer, const AM_MEDIA_TYPE* type) override;
    STDMETHODIMP ReceiveConnection(IPin* peer, const AM_MEDIA_TYPE* type) override;
    STDMETHODIMP Disconnect() override;
    STDMETHODIMP ConnectedTo(IPin** peer) override;
    STDMETHODIMP ConnectionMediaType(AM_MEDIA_TYPE* type) override;
    STDMETHODIMP QueryPinInfo(PIN_INFO* info) override;
    STDMETHODIMP QueryDirection(PIN_DIRECTION* direction) override;
    STDMETHODIMP QueryId(LPWSTR* id) override;
    STDMETHODIMP QueryAccept(const AM_MEDIA_TYPE* type) override;
    STDMETHODIMP EnumMediaTypes(IEnumMediaTypes** types) override;
    STDMETHODIMP QueryInternalConnections(IPin** pins, ULONG* count) override;
    STDMETHODIMP EndOfStream() override;
    STDMETHODIMP BeginFlush() override;
    STDMETHODIMP EndFlush() override;
    STDMETHODIMP NewSegment(REFERENCE_TIME start, REFERENCE_TIME stop, double rate) override;

    // IAMStreamConfig
    STDMETHODIMP SetFormat(AM_MEDIA_TYPE* type) override;
    STDMETHODIMP GetFormat(AM_MEDIA_TYPE** type) override;
    STDMETHODIMP GetNumberOfCapabilities(int* count, int* size) override;
    STDMETHODIMP GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* capabilities) override;

    // IKsPropertySet: the pin's category and nothing else
    STDMETHODIMP Set(REFGUID set, DWORD id, LPVOID instance, DWORD instanceSize, LPVOID data,
                     DWORD size) override;
    STDMETHODIMP Get(REFGUID set, DWORD id, LPVOID instance, DWORD instanceSize, LPVOID data,
                     DWORD size, DWORD* returned) override;
    STDMETHODIMP QuerySupported(REFGUID set, DWORD id, DWORD* support) override;

    // IQualityControl: a live camera has no other rate to offer
    STDMETHODIMP Notify(IBaseFilter* sender, Quality message) override;
    STDMETHODIMP SetSink(IQualityControl* sink) override;

private:
    struct Connection
    {
        Microsoft::WRL::ComPtr<IPin> peer;
        Microsoft::WRL::ComPtr<IMemInputPin> input;
        Microsoft::WRL::ComPtr<IMemAllocator> allocator;
        StreamFormat format;
    };

    // What a program may choose from, looked up anew; it stays the same until the next look.
    [[nodiscard]] std::vector<StreamFormat> lookUpFormats();
    [[nodiscard]] std::vector<StreamFormat> formats();
    [[nodiscard]] std::optional<Connection> connection();
    [[nodiscard]] std::optional<StreamFormat> chosen();
    void setConnection(std::optional<Connection> connection);

    [[nodiscard]] HRESULT connectWithAny(IPin& peer, const AM_MEDIA_TYPE* partial);
    [[nodiscard]] HRESULT connectWithTypesOf(IPin& peer, const AM_MEDIA_TYPE* partial);
    [[nodiscard]] HRESULT connectWith(IPin& peer, const StreamFormat& format);
    [[nodiscard]] HRESULT reconnect(IPin& peer, const AM_MEDIA_TYPE& type,
                                    const StreamFormat& format);

    CameraFilter& m_filter;
    std::unique_ptr<PictureStream> m_stream; // guarded by the filter's state lock

    // Guards the rest and is held briefly, so that a question never waits for a change of state.
    // Who changes the connection holds the filter's state lock as well.
    Lock m_lock;
    std::optional<Connection> m_connection;
    std::optional<StreamFormat> m_chosen; // by SetFormat()
    std::vector<StreamFormat> m_formats;
};

} // namespace pevrix
