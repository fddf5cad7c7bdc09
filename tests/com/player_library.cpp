#include "tests/com/player_library.h"

#include <cstdio>
#include <stdexcept>

#include "tests/com/session_player.h"

using zolt20::tests::SessionPlayer;

extern "C" int __stdcall PlaySessions(const wchar_t* folder, EmbedControl embed, void* context) {
  try {
    SessionPlayer player([&] {
      SessionPlayer::Embedded made;
      if (FAILED(embed(context, made.control.Put(), &made.container)) || !made.control)
        throw std::runtime_error("no control in the container");
      return made;
    });
    const std::vector<std::wstring> sessions = zolt20::tests::SessionsIn(folder);
    int differing = sessions.empty() ? -1 : 0;
    for (const std::wstring& session : sessions) {
      const std::vector<std::string> wrong = player.Play(session);
      std::printf("%ls: %s\n", session.c_str(), wrong.empty() ? "as recorded" : "differs");
      for (const std::string& line : wrong)
        std::printf("  %.600s\n", line.c_str());
      if (!wrong.empty()) ++differing;
    }
    const SessionPlayer::Counts& counts = player.counts();
    std::printf("%d calls and %d gestures, %d events, %d notices, %d answers within an event\n",
                counts.hostLines, counts.personLines, counts.events, counts.notices,
                counts.answers);
    std::fflush(stdout);
    return differing;
  } catch (const std::exception& failure) {
    std::printf("%s\n", failure.what());
    std::fflush(stdout);
    return -1;
  }
}
