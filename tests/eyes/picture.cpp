#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

#include "base/gdi.h"
#include "framework/dpi_awareness.h"
#include "tests/eyes/control.h"
#include "tests/eyes/eye.h"
#include "tests/eyes/text_room.h"

namespace vmk::test {
namespace {

constexpr COLORREF kFrameColour = RGB(230, 0, 0);
// Without a fourth byte, which some programs take for transparency.
constexpr int kBytesPerPixel = 3;

// What is on screen of a window, in memory that a file can be made of.
class Picture {
  public:
    explicit Picture(HWND window) : m_context(CreateCompatibleDC(nullptr)) {
        GetWindowRect(window, &m_place);
        m_header.biSize = sizeof(m_header);
        m_header.biWidth = m_place.right - m_place.left;
        m_header.biHeight = m_place.bottom - m_place.top;
        m_header.biPlanes = 1;
        m_header.biBitCount = 8 * kBytesPerPixel;
        m_bitmap = CreateDIBSection(m_context, reinterpret_cast<BITMAPINFO*>(&m_header), DIB_RGB_COLORS,
                                    &m_bits, nullptr, 0);
        m_previous = SelectObject(m_context, m_bitmap);
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        HDC source = GetWindowDC(window);
        BitBlt(m_context, 0, 0, m_header.biWidth, m_header.biHeight, source, 0, 0, SRCCOPY);
        ReleaseDC(window, source);
    }
    ~Picture() {
        SelectObject(m_context, m_previous);
        DeleteObject(m_bitmap);
        DeleteDC(m_context);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    void Frame(HWND control) {
        RECT place{};
        GetWindowRect(control, &place);
        OffsetRect(&place, -m_place.left, -m_place.top);
        HBRUSH brush = CreateSolidBrush(kFrameColour);
        for (int line = 0; line < Scaled(2); ++line) {
            InflateRect(&place, 1, 1);
            FrameRect(m_context, &place, brush);
        }
        DeleteObject(brush);
    }

    bool Write(const std::wstring& file) const {
        GdiFlush();
        // Each line ends at a multiple of four bytes.
        const long line = (m_header.biWidth * kBytesPerPixel + 3) / 4 * 4;
        const auto size = static_cast<std::size_t>(line * m_header.biHeight);
        BITMAPFILEHEADER start{};
        start.bfType = 0x4D42;  // "BM"
        start.bfOffBits = sizeof(start) + sizeof(m_header);
        start.bfSize = static_cast<DWORD>(start.bfOffBits + size);
        HANDLE opened = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        if (opened == INVALID_HANDLE_VALUE) return false;
        const bool isWritten = Append(opened, &start, sizeof(start)) &&
                               Append(opened, &m_header, sizeof(m_header)) && Append(opened, m_bits, size);
        CloseHandle(opened);
        return isWritten;
    }

  private:
    static bool Append(HANDLE file, const void* bytes, std::size_t size) {
        DWORD written = 0;
        return WriteFile(file, bytes, static_cast<DWORD>(size), &written, nullptr) && written == size;
    }

    HDC m_context;
    RECT m_place{};
    BITMAPINFOHEADER m_header{};
    void* m_bits = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
};

}  // namespace

bool WritePicture(HWND window, const std::vector<HWND>& framed, const std::wstring& file) {
    const SystemDpiAwareness dpiAwareness;
    Picture picture(window);
    for (HWND control : framed) picture.Frame(control);
    return picture.Write(file);
}

}  // namespace vmk::test
