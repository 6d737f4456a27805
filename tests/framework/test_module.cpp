#include "framework/module.h"

namespace vmk::test {
namespace {

const Module kModule;

}  // namespace
}  // namespace vmk::test
