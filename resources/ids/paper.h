#pragma once

#define IDD_PAPER 203
