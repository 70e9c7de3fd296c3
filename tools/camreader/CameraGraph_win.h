#pragma once

#include "tools/camreader/Devices_win.h"
#include "tools/camreader/SinkFilter_win.h"

#include <string>
#include <vector>

namespace pevrix {

// A camera in a graph with a sink of ours, driven the way browsers do. Used by one thread, which is
// in a COM apartment. What fails returns a text that says so, and an empty one otherwise.
class CameraGraph
{
public:
    // The watcher must outlive the graph.
    explicit CameraGraph(Watcher& watcher);
    ~CameraGraph();
    CameraGraph(const CameraGraph&) = delete;
    CameraGraph& operator=(const CameraGraph&) = delete;

    [[nodiscard]] std::string open(const Device& device);

    // The formats that the camera lists, in its order.
    [[nodiscard]] std::string listFormats(std::vector<VideoFormat>& formats);

    // Connects the sink in the format with this index, asked for at 30 pictures a second.
    [[nodiscard]] std::string connect(std::size_t index);

    [[nodiscard]] std::string run();
    [[nodiscard]] std::string stop();
    [[nodiscard]] std::string disconnect();

    [[nodiscard]] int shortSamples() const { return m_sink->pin().shortSamples(); }

private:
    [[nodiscard]] std::string findPin();
    [[nodiscard]] UniqueMediaType formatAt(std::size_t index);

    Microsoft::WRL::ComPtr<SinkFilter> m_sink;
    Microsoft::WRL::ComPtr<IGraphBuilder> m_graph;
    Microsoft::WRL::ComPtr<IMediaControl> m_control;
    Microsoft::WRL::ComPtr<IBaseFilter> m_camera;
    Microsoft::WRL::ComPtr<IPin> m_output;
    Microsoft::WRL::ComPtr<IAMStreamConfig> m_config;
};

} // namespace pevrix
