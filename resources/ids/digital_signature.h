#pragma once

#define IDD_DIGITAL_SIGNATURE 107
