#pragma once

#define IDD_GENERAL 204
