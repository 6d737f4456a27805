#pragma once

#include <memory>

#include "pages/page_window.h"

// The pages by name. What they are made of is their own business: nobody outside includes anything else from
// this folder.

namespace vmk {

// Pages on a sheet and their order.
std::unique_ptr<PageWindow> MakePaperPage();
// Listed without content.
std::unique_ptr<PageWindow> MakeCustomFormsPage();
// The version of the PDF file, and how a viewer shows it.
std::unique_ptr<PageWindow> MakeGeneralPage();
// What is compressed and how.
std::unique_ptr<PageWindow> MakeCompressionPage();
// How images are downsampled and converted.
std::unique_ptr<PageWindow> MakeGraphicsPage();
// Which fonts are embedded: all, protected ones, and two lists that the user fills from the installed fonts.
std::unique_ptr<PageWindow> MakeFontsPage();
// Whether watermarks are printed.
std::unique_ptr<PageWindow> MakeWatermarksPage();
// The pages of an existing PDF file laid over the document.
std::unique_ptr<PageWindow> MakeOverlayPage();
// Encryption: passwords, level, and the permissions that the level knows.
std::unique_ptr<PageWindow> MakeSecurityPage();
// The digital signature of the document.
std::unique_ptr<PageWindow> MakeDigitalSignaturePage();
// What becomes a link and how links look.
std::unique_ptr<PageWindow> MakeLinksPage();
// How bookmarks are detected.
std::unique_ptr<PageWindow> MakeBookmarksPage();
// The texts that describe the document.
std::unique_ptr<PageWindow> MakeDocumentInfoPage();
// Where the file goes, how it is named, what happens when it exists already, and which application is started
// on it.
std::unique_ptr<PageWindow> MakeSavePage();
// Whether and how the file is mailed.
std::unique_ptr<PageWindow> MakeEmailPage();
// Listed without content.
std::unique_ptr<PageWindow> MakeProfilesPage();
// Blending, work-arounds and the use of memory.
std::unique_ptr<PageWindow> MakeOptimizationPage();

}  // namespace vmk
