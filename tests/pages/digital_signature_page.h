#pragma once

#include <string>
#include <vector>

#include "resources/ids/digital_signature.h"
#include "tests/support/page_fixture.h"

// The Digital Signature page for its tests, with a signature that is switched on.

namespace vmk::test {

using Signature = decltype(PrinterSettings::SecurityGroup::Digisig);

inline const std::vector<UINT> kLengths = {IDC_SIGNATURE_LEFT, IDC_SIGNATURE_TOP, IDC_SIGNATURE_WIDTH,
                                           IDC_SIGNATURE_HEIGHT};
inline const std::vector<UINT> kLengthSpins = {IDC_SIGNATURE_LEFT_SPIN, IDC_SIGNATURE_TOP_SPIN,
                                               IDC_SIGNATURE_WIDTH_SPIN, IDC_SIGNATURE_HEIGHT_SPIN};

class DigitalSignaturePage : public PageTest {
  protected:
    DigitalSignaturePage() : PageTest(page_bit::kDigitalSign) { signature.Enable = 1; }

    Signature Applied() const {
        dialog->Apply();
        return dialog->Record().Security.Digisig;
    }

    // Has the page store, whatever else was changed.
    Signature Stored() const {
        page.EnterText(IDC_SIGNATURE_LOCATION, L"here");
        return Applied();
    }

    std::vector<std::wstring> ShownLengths() const {
        std::vector<std::wstring> texts;
        texts.reserve(kLengths.size());
        for (const UINT length : kLengths) texts.push_back(page.Text(length));
        return texts;
    }

    Signature& signature = stored.Security.Digisig;
};

}  // namespace vmk::test
