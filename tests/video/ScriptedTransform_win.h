#pragma once

#include "tests/support/ScriptedClass_win.h"
#include "video/MediaFoundation_win.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <vector>

namespace pevrix {

// What the scripted decoder transform shall do, and what was done with it.
struct Script
{
    struct OutputType
    {
        GUID subtype = MFVideoFormat_NV12;
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        std::uint32_t stride = 0; // 0: without the attribute
        LONG shownWidth = 0;      // the same
    };
    struct Output
    {
        HRESULT result = S_OK;
        std::vector<std::uint8_t> bytes{};
        std::optional<LONGLONG> time{};
    };

    HRESULT createResult = S_OK;
    HRESULT inputTypeResult = S_OK;
    HRESULT outputTypeResult = S_OK;
    std::vector<OutputType> types{};
    std::vector<OutputType> typesAfterChange{}; // offered once a stream change was reported
    DWORD streamFlags = 0;
    DWORD bufferSize = 0;
    int refusals = 0;             // of input, before some is accepted
    std::deque<Output> outputs{}; // then MF_E_TRANSFORM_NEED_MORE_INPUT
    bool repeatLastOutput = false;

    Microsoft::WRL::ComPtr<IMFAttributes> attributes{};

    int living = 0; // transforms
    int flushes = 0;
    std::vector<std::uint8_t> input{}; // the last that was accepted
    LONGLONG inputTime = 0;
};

class ScriptedTransform final : public CountedObject<IMFTransform>
{
public:
    explicit ScriptedTransform(Script& script)
        : m_script(script)
    {
        ++m_script.living;
    }
    ~ScriptedTransform() override { --m_script.living; }

    STDMETHODIMP GetAttributes(IMFAttributes** attributes) override
    {
        return m_script.attributes == nullptr ? E_NOTIMPL : m_script.attributes.CopyTo(attributes);
    }

    STDMETHODIMP SetInputType(DWORD, IMFMediaType*, DWORD) override
    {
        return m_script.inputTypeResult;
    }

    STDMETHODIMP GetOutputAvailableType(DWORD, DWORD index, IMFMediaType** result) override
    {
        const auto& types = m_changed ? m_script.typesAfterChange : m_script.types;
        if (index >= types.size()) {
            return MF_E_NO_MORE_TYPES;
        }
        const Script::OutputType& from = types[index];
        Microsoft::WRL::ComPtr<IMFMediaType> type;
        MFCreateMediaType(&type);
        type->SetGUID(MF_MT_SUBTYPE, from.subtype);
        if (from.width != 0) {
            type->SetUINT64(MF_MT_FRAME_SIZE, UINT64{from.width} << 32 | from.height);
        }
        if (from.stride != 0) {
            type->SetUINT32(MF_MT_DEFAULT_STRIDE, from.stride);
        }
        if (from.shownWidth != 0) {
            MFVideoArea area{};
            area.Area = {from.shownWidth, static_cast<LONG>(from.height)};
            type->SetBlob(MF_MT_MINIMUM_DISPLAY_APERTURE, reinterpret_cast<const UINT8*>(&area),
                          sizeof(area));
        }
        *result = type.Detach();
        return S_OK;
    }

    STDMETHODIMP SetOutputType(DWORD, IMFMediaType*, DWORD) override
    {
        return m_script.outputTypeResult;
    }

    STDMETHODIMP GetOutputStreamInfo(DWORD, MFT_OUTPUT_STREAM_INFO* info) override
    {
        *info = {m_script.streamFlags, m_script.bufferSize, 0};
        return S_OK;
    }

    STDMETHODIMP ProcessMessage(MFT_MESSAGE_TYPE message, ULONG_PTR) override
    {
        m_script.flushes += message == MFT_MESSAGE_COMMAND_FLUSH ? 1 : 0;
        return S_OK;
    }

    STDMETHODIMP ProcessInput(DWORD, IMFSample* sample, DWORD) override
    {
        if (m_script.refusals > 0) {
            --m_script.refusals;
            return MF_E_NOTACCEPTING;
        }
        Microsoft::WRL::ComPtr<IMFMediaBuffer> buffer;
        sample->ConvertToContiguousBuffer(&buffer);
        DWORD length = 0;
        buffer->GetCurrentLength(&length);
        const LockedBuffer locked(buffer.Get());
        m_script.input.assign(locked.bytes().data(), locked.bytes().data() + length);
        sample->GetSampleTime(&m_script.inputTime);
        return S_OK;
    }

    STDMETHODIMP ProcessOutput(DWORD, DWORD, MFT_OUTPUT_DATA_BUFFER* output, DWORD*) override
    {
        if (m_script.outputs.empty()) {
            return MF_E_TRANSFORM_NEED_MORE_INPUT;
        }
        const Script::Output next = m_script.outputs.front();
        if (!m_script.repeatLastOutput || m_script.outputs.size() > 1) {
            m_script.outputs.pop_front();
        }
        m_changed = m_changed || next.result == MF_E_TRANSFORM_STREAM_CHANGE;
        // Left behind for the caller to release, whatever the result.
        MFCreateCollection(&output->pEvents);
        return FAILED(next.result) ? next.result : write(next, *output);
    }

    // What a decoder never asks for.
    STDMETHODIMP GetStreamLimits(DWORD*, DWORD*, DWORD*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetStreamCount(DWORD*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetStreamIDs(DWORD, DWORD*, DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetInputStreamInfo(DWORD, MFT_INPUT_STREAM_INFO*) override { return E_NOTIMPL; }
    STDMETHODIMP GetInputStreamAttributes(DWORD, IMFAttributes**) override { return E_NOTIMPL; }
    STDMETHODIMP GetOutputStreamAttributes(DWORD, IMFAttributes**) override { return E_NOTIMPL; }
    STDMETHODIMP DeleteInputStream(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP AddInputStreams(DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetInputAvailableType(DWORD, DWORD, IMFMediaType**) override { return E_NOTIMPL; }
    STDMETHODIMP GetInputCurrentType(DWORD, IMFMediaType**) override { return E_NOTIMPL; }
    STDMETHODIMP GetOutputCurrentType(DWORD, IMFMediaType**) override { return E_NOTIMPL; }
    STDMETHODIMP GetInputStatus(DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetOutputStatus(DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP SetOutputBounds(LONGLONG, LONGLONG) override { return E_NOTIMPL; }
    STDMETHODIMP ProcessEvent(DWORD, IMFMediaEvent*) override { return E_NOTIMPL; }

private:
    // Into the caller's sample, or into one of its own where the script says so.
    HRESULT write(const Script::Output& from, MFT_OUTPUT_DATA_BUFFER& output)
    {
        const bool allocates =
            (m_script.streamFlags &
             (MFT_OUTPUT_STREAM_PROVIDES_SAMPLES | MFT_OUTPUT_STREAM_CAN_PROVIDE_SAMPLES)) != 0;
        if (allocates != (output.pSample == nullptr)) {
            return E_INVALIDARG;
        }
        Microsoft::WRL::ComPtr<IMFMediaBuffer> buffer;
        const auto size = static_cast<DWORD>(from.bytes.size());
        if (allocates) {
            MFCreateSample(&output.pSample);
            MFCreateMemoryBuffer(size, &buffer);
            output.pSample->AddBuffer(buffer.Get());
        } else {
            output.pSample->ConvertToContiguousBuffer(&buffer);
        }
        const LockedBuffer locked(buffer.Get());
        if (locked.bytes().size() < from.bytes.size()) {
            return MF_E_BUFFERTOOSMALL;
        }
        std::ranges::copy(from.bytes, locked.bytes().begin());
        buffer->SetCurrentLength(size);
        if (from.time) {
            output.pSample->SetSampleTime(*from.time);
        }
        return S_OK;
    }

    Script& m_script;
    bool m_changed = false;
};

} // namespace pevrix
