#pragma once

#define IDD_OVERLAY 225
