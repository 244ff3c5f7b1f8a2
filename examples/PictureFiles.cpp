#include "PictureFiles.h"

#include <wincodec.h>

namespace {

// Releases a COM interface at scope exit.
template <class T>
struct ComPtr {
    T* p = nullptr;
    ~ComPtr() { if (p) p->Release(); }
    T** operator&() { return &p; }
    T* operator->() const { return p; }
};

} // namespace

bool WritePng(const wchar_t* path, const void* pixels, int width, int height)
{
    const HRESULT init = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    bool written = false;
    {
        ComPtr<IWICImagingFactory> factory;
        ComPtr<IWICStream> stream;
        ComPtr<IWICBitmapEncoder> encoder;
        ComPtr<IWICBitmapFrameEncode> frame;
        WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
        const UINT stride = static_cast<UINT>(width) * 4;
        written =
            SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                         IID_IWICImagingFactory, reinterpret_cast<void**>(&factory))) &&
            SUCCEEDED(factory->CreateStream(&stream)) &&
            SUCCEEDED(stream->InitializeFromFilename(path, GENERIC_WRITE)) &&
            SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder)) &&
            SUCCEEDED(encoder->Initialize(stream.p, WICBitmapEncoderNoCache)) &&
            SUCCEEDED(encoder->CreateNewFrame(&frame, nullptr)) && SUCCEEDED(frame->Initialize(nullptr)) &&
            SUCCEEDED(frame->SetSize(static_cast<UINT>(width), static_cast<UINT>(height))) &&
            SUCCEEDED(frame->SetPixelFormat(&format)) && IsEqualGUID(format, GUID_WICPixelFormat32bppBGR) &&
            SUCCEEDED(frame->WritePixels(static_cast<UINT>(height), stride, stride * static_cast<UINT>(height),
                                         static_cast<BYTE*>(const_cast<void*>(pixels)))) &&
            SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
    }
    if (SUCCEEDED(init))
        ::CoUninitialize();
    return written;
}

bool WriteEmf(const char* path, int width, int height, const std::function<void(HDC)>& draw)
{
    HDC screen = ::GetDC(nullptr);
    // The frame is in hundredths of a millimetre, from the screen's resolution.
    const int mmX = ::GetDeviceCaps(screen, HORZSIZE), pxX = ::GetDeviceCaps(screen, HORZRES);
    const int mmY = ::GetDeviceCaps(screen, VERTSIZE), pxY = ::GetDeviceCaps(screen, VERTRES);
    RECT frame = {0, 0, ::MulDiv(width, mmX * 100, pxX), ::MulDiv(height, mmY * 100, pxY)};
    HDC hdc = ::CreateEnhMetaFileA(screen, path, &frame, "gallery\0page\0");
    ::ReleaseDC(nullptr, screen);
    if (!hdc)
        return false;
    draw(hdc);
    HENHMETAFILE file = ::CloseEnhMetaFile(hdc);
    if (!file)
        return false;
    ::DeleteEnhMetaFile(file);
    return true;
}
