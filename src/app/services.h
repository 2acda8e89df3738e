#pragma once

#include "platform/alerts.h"
#include "platform/application_host.h"
#include "platform/file_panels.h"
#include "platform/file_system.h"
#include "platform/notification_center.h"
#include "platform/process_launcher.h"
#include "platform/run_loop.h"
#include "platform/speech_output.h"
#include "platform/text_encodings.h"
#include "platform/update_service.h"

namespace tallyfold {

// What the application needs of the machine it runs on, beside the ambient four (see
// platform/ambient.h). The services must outlive whoever is built with them.
struct Services {
  FileSystem& files;
  Alerts& alerts;
  FilePanels& panels;
  ProcessLauncher& processes;
  // Reads entries; falls silent whenever the user does something.
  SpeechOutput& speech;
  // Echoes what is typed into fields; a voice of its own, so that typing on does not silence it.
  SpeechOutput& field_speech;
  RunLoop& loop;
  NotificationCenter& notifications;
  ApplicationHost& host;
  TextEncodings& encodings;
  // Null where there is nobody to ask for newer versions.
  UpdateService* updates = nullptr;
};

}  // namespace tallyfold
