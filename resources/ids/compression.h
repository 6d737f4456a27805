#pragma once

#define IDD_COMPRESSION 205
