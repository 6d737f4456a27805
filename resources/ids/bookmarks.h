#pragma once

#define IDD_BOOKMARKS 211
