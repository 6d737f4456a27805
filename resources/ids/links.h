#pragma once

#define IDD_LINKS 210
