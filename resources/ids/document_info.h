#pragma once

#define IDD_DOCUMENT_INFO 212
