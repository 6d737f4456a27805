#pragma once

#define IDD_SECURITY 209
