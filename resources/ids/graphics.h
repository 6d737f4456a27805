#pragma once

#define IDD_GRAPHICS 206
