#pragma once

#define IDD_OPTIMIZATION 224
