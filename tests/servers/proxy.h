// What stands between a client and a server of a test: passes on what both say, until the client
// says a certain word. What comes then is the test's.
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>

namespace zolt20::tests {

class Proxy {
 public:
  /// Before the word is passed on `then` is done, once.
  Proxy(int port, QByteArray word, std::function<void()> then)
      : word_(std::move(word)), then_(std::move(then)) {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this, port] {
      QTcpSocket* client = server_.nextPendingConnection();
      auto* behind = new QTcpSocket(client);
      behind->connectToHost(QHostAddress(QHostAddress::LocalHost), static_cast<quint16>(port));
      behind->waitForConnected();
      QObject::connect(client, &QTcpSocket::readyRead, behind, [this, client, behind] {
        const QByteArray said = client->readAll();
        if (then_ && said.contains(word_)) std::exchange(then_, nullptr)();
        behind->write(said);
      });
      QObject::connect(behind, &QTcpSocket::readyRead, client,
                       [client, behind] { client->write(behind->readAll()); });
      QObject::connect(behind, &QTcpSocket::disconnected, client, &QTcpSocket::disconnectFromHost);
      QObject::connect(client, &QTcpSocket::disconnected, behind, &QTcpSocket::disconnectFromHost);
    });
  }

  int Port() const { return server_.serverPort(); }
  bool HasCome() const { return !then_; }

 private:
  QByteArray word_;
  std::function<void()> then_;
  QTcpServer server_;
};

}  // namespace zolt20::tests
