#include "tools/camreader/CameraGraph_win.h"

#include <cstdio>
#include <ks.h>
#include <ksmedia.h>
#include <ksproxy.h>

namespace pevrix {

using Microsoft::WRL::ComPtr;

namespace {

constexpr REFERENCE_TIME kThirtyASecond = 333'333;
constexpr DWORD kStateMilliseconds = 5'000;

std::string failed(const char* what, HRESULT result)
{
    char text[120];
    std::snprintf(text, sizeof text, "%s failed with 0x%08lX", what,
                  static_cast<unsigned long>(result));
    return text;
}

bool isCapturePin(IPin& pin)
{
    ComPtr<IKsPropertySet> properties;
    GUID category{};
    DWORD size = 0;
    return SUCCEEDED(pin.QueryInterface(IID_PPV_ARGS(&properties))) &&
           SUCCEEDED(properties->Get(AMPROPSETID_Pin, AMPROPERTY_PIN_CATEGORY, nullptr, 0,
                                     &category, sizeof category, &size)) &&
           category == PIN_CATEGORY_CAPTURE;
}

} // namespace

CameraGraph::CameraGraph(Watcher& watcher)
{
    m_sink.Attach(new SinkFilter(watcher));
}

CameraGraph::~CameraGraph()
{
    if (m_control) {
        m_control->Stop();
    }
    if (m_graph) {
        m_graph->RemoveFilter(m_sink.Get());
        m_graph->RemoveFilter(m_camera.Get());
    }
}

std::string CameraGraph::open(const Device& device)
{
    HRESULT result = device.moniker->BindToObject(nullptr, nullptr, IID_PPV_ARGS(&m_camera));
    if (FAILED(result)) {
        return failed("making the camera", result);
    }
    result =
        CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&m_graph));
    if (FAILED(result) || FAILED(result = m_graph.As(&m_control)) ||
        FAILED(result = m_graph->AddFilter(m_camera.Get(), L"camera")) ||
        FAILED(result = m_graph->AddFilter(m_sink.Get(), L"sink"))) {
        return failed("making the graph", result);
    }
    return findPin();
}

std::string CameraGraph::findPin()
{
    ComPtr<IEnumPins> pins;
    if (const HRESULT result = m_camera->EnumPins(&pins); FAILED(result)) {
        return failed("listing the camera's pins", result);
    }
    ComPtr<IPin> pin;
    while (pins->Next(1, &pin, nullptr) == S_OK) {
        PIN_DIRECTION direction = PINDIR_INPUT;
        if (SUCCEEDED(pin->QueryDirection(&direction)) && direction == PINDIR_OUTPUT &&
            isCapturePin(*pin.Get())) {
            m_output = pin;
            const HRESULT result = pin.As(&m_config);
            return FAILED(result) ? failed("asking for the pin's formats", result) : std::string();
        }
        pin.Reset();
    }
    return "the camera has no capture pin";
}

std::string CameraGraph::listFormats(std::vector<VideoFormat>& formats)
{
    int count = 0;
    int size = 0;
    if (const HRESULT result = m_config->GetNumberOfCapabilities(&count, &size); FAILED(result)) {
        return failed("counting formats", result);
    }
    if (size != sizeof(VIDEO_STREAM_CONFIG_CAPS)) {
        return "the camera's capabilities have an odd size";
    }
    for (int index = 0; index < count; ++index) {
        const UniqueMediaType type = formatAt(static_cast<std::size_t>(index));
        if (!type) {
            return "a listed format is not handed out";
        }
        formats.push_back(videoFormat(*type));
    }
    return formatAt(static_cast<std::size_t>(count)) ? "a format beyond the last is handed out"
                                                     : std::string();
}

UniqueMediaType CameraGraph::formatAt(std::size_t index)
{
    AM_MEDIA_TYPE* type = nullptr;
    VIDEO_STREAM_CONFIG_CAPS capabilities{};
    const HRESULT result = m_config->GetStreamCaps(static_cast<int>(index), &type,
                                                   reinterpret_cast<BYTE*>(&capabilities));
    return UniqueMediaType(result == S_OK ? type : nullptr);
}

std::string CameraGraph::connect(std::size_t index)
{
    const UniqueMediaType type = formatAt(index);
    if (!type || type->cbFormat < sizeof(VIDEOINFOHEADER)) {
        return "there is no such format";
    }
    reinterpret_cast<VIDEOINFOHEADER*>(type->pbFormat)->AvgTimePerFrame = kThirtyASecond;
    HRESULT result = m_config->SetFormat(type.get());
    if (FAILED(result)) {
        return failed("choosing the format", result);
    }
    result = m_graph->ConnectDirect(m_output.Get(), &m_sink->pin(), type.get());
    return FAILED(result) ? failed("connecting", result) : std::string();
}

std::string CameraGraph::run()
{
    // Browsers pause first. A camera has nothing to show then (VFW_S_CANT_CUE).
    HRESULT result = m_control->Pause();
    if (FAILED(result)) {
        return failed("pausing", result);
    }
    result = m_control->Run();
    OAFilterState state = State_Stopped;
    if (FAILED(result) || FAILED(result = m_control->GetState(kStateMilliseconds, &state))) {
        return failed("running", result);
    }
    return state == State_Running ? std::string() : "the graph does not run";
}

std::string CameraGraph::stop()
{
    const HRESULT result = m_control->Stop();
    return FAILED(result) ? failed("stopping", result) : std::string();
}

std::string CameraGraph::disconnect()
{
    HRESULT result = m_graph->Disconnect(m_output.Get());
    if (SUCCEEDED(result)) {
        result = m_graph->Disconnect(&m_sink->pin());
    }
    return FAILED(result) ? failed("disconnecting", result) : std::string();
}

} // namespace pevrix
