#pragma once

// What #import makes of a type library with Visual C++, for every compiler: the component as a class, its
// texts as std::wstring, its failures as exceptions, its result as what the method returns.

#include <windows.h>

#include <memory>
#include <string>
#include <system_error>

#include "vmkctrl.h"

namespace vmkctrl {

class Preferences {
  public:
    enum class Answer : LONG { kNone = -1, kOk = 1, kCancel = 2 };

    // On a thread that is a single-threaded apartment. Throws std::system_error, as everything here does.
    Preferences() {
        IPdfPrinterPreferences* created = nullptr;
        Check(CoCreateInstance(__uuidof(PdfPrinterPreferences), nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(IPdfPrinterPreferences), reinterpret_cast<void**>(&created)));
        m_object.reset(created);
    }

    // Sets of pages are sums of the bits of PdfPrinterDialogPage. An empty key is the root of the settings.
    void EnablePage(PdfPrinterDialogPage pages) { Check(m_object->EnablePage(pages)); }
    void DisablePage(PdfPrinterDialogPage pages) { Check(m_object->DisablePage(pages)); }
    void UseDefaultValues(PdfPrinterDialogPage groups) { Check(m_object->UseDefaultValues(groups)); }
    void InitFromRegistry(PdfPrinterDialogPage groups, const std::wstring& key) {
        Check(m_object->InitFromRegistry(groups, String(key).get()));
    }
    void StoreInRegistry(PdfPrinterDialogPage groups, const std::wstring& key) {
        Check(m_object->StoreInRegistry(groups, String(key).get()));
    }
    void SetTitle(const std::wstring& title) { Check(m_object->SetTitle(String(title).get())); }

    // 0 is the user's language.
    Answer OpenDialog(LONG language = 0) {
        LONG exitCode = -1;
        Check(m_object->OpenDialog(language, &exitCode));
        return static_cast<Answer>(exitCode);
    }

  private:
    struct Release {
        void operator()(IUnknown* object) const { object->Release(); }
    };
    class String {
      public:
        explicit String(const std::wstring& text)
            : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
            if (!m_text) Check(E_OUTOFMEMORY);
        }
        ~String() { SysFreeString(m_text); }
        String(const String&) = delete;
        String& operator=(const String&) = delete;
        BSTR get() const { return m_text; }

      private:
        BSTR m_text;
    };

    static void Check(HRESULT result) {
        if (FAILED(result)) throw std::system_error(result, std::system_category());
    }

    std::unique_ptr<IPdfPrinterPreferences, Release> m_object;
};

}  // namespace vmkctrl
