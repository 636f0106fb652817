#pragma once

// The whole public interface of the platform layer.

#include <utils/algorithm/aes.h>
#include <utils/algorithm/base64.h>
#include <utils/algorithm/codec.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>
#include <utils/color.h>
#include <utils/error.h>
#include <utils/errorHandle.h>
#include <utils/export.h>
#include <utils/geometry.h>
#include <utils/json.h>
#include <utils/jsonPath.h>
#include <utils/keyPath.h>
#include <utils/logger.h>
#include <utils/mmfile.h>
#include <utils/path.h>
#include <utils/timeDate.h>
#include <utils/utf8.h>
#include <utils/version.h>
