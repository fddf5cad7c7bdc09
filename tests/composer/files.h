// Files as tests make and read them, and a disk that is full.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <csignal>
#include <string>

namespace zolt20::tests {

inline std::string Bytes(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll().toStdString();
}
/// The bytes of a file of rules without the times at which its texts were stored.
inline std::string Timeless(const QString& path) {
  static const QRegularExpression time(
      QStringLiteral(R"re(,\n +"stored": "\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ")re"));
  return QString::fromLatin1(Bytes(path)).remove(time).toLatin1().toStdString();
}
inline void WriteBytes(const QString& path, const std::string& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
  ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())),
            static_cast<qint64>(bytes.size()));
}

/// As long as it lives, no file of this process can grow beyond a number of bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit now{bytes, before_.rlim_max};
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &now), 0);
  }
  ~FullDisk() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before_), 0);
    static_cast<void>(std::signal(SIGXFSZ, handler_));
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = SIG_DFL;
};

}  // namespace zolt20::tests
