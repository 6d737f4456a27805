#pragma once

#define IDD_EMAIL 214
