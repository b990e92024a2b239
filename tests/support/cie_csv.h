#pragma once
// The former name of csv_table.h, kept for the tests that include it by that name.
#include "csv_table.h"
