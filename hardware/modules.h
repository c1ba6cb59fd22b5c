#pragma once
// All classes of this folder.

#include "hardware/controller.h"
#include "hardware/devices.h"
#include "hardware/encoders.h"
#include "hardware/network.h"
#include "hardware/remote_io.h"
#include "hardware/serial_ports.h"
#include "hardware/servo_amplifier.h"
