#include "tests/support/Nginx.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

namespace quorin::support {
namespace {

namespace fs = std::filesystem;

fs::path binary() {
    const char* named = std::getenv("QUORIN_NGINX");
    fs::path nginx = named ? fs::path(named) : fs::path(QUORIN_BINARY_DIR) / "nginx/usr/sbin/nginx";
    if (fs::exists(nginx)) return nginx;
    std::cerr << "There is no nginx at " << nginx << ". To get it, run:\n  " << QUORIN_SOURCE_DIR
              << "/tests/support/fetch-nginx.sh " << QUORIN_BINARY_DIR << "/nginx\n";
    std::exit(1);
}

void write(const fs::path& file, std::string_view text) { std::ofstream(file, std::ios::binary) << text; }

std::string tlsServer(const std::string& name, int port, const std::string& down) {
    if (name == "outdated")
        return "server { listen 127.0.0.1:" + std::to_string(port)
               + " ssl; ssl_certificate good.pem; ssl_certificate_key good.key; ssl_protocols TLSv1.1; ssl_ciphers"
                 " DEFAULT:@SECLEVEL=0; }\n";
    return "server { listen 127.0.0.1:" + std::to_string(port) + " ssl http2; ssl_certificate " + name
           + ".pem; ssl_certificate_key " + name
           + ".key; add_header X-Protocol $server_protocol always; add_header X-Cookie $http_cookie always;"
             " location = /down { return 302 "
           + down + "; } }\n";
}

}  // namespace

Nginx::Nginx() {
    std::string folder = fs::temp_directory_path() / "quorin-nginx-XXXXXX";
    if (!mkdtemp(folder.data())) std::abort();
    folder_ = folder;
    for (const char* host : {"plain", "good", "expired", "selfsigned", "wronghost", "outdated"}) {
        listeners_[host] = listenOnFreePort();
    }
    writeFiles();
    start();
}

Nginx::~Nginx() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    for (const auto& [host, listener] : listeners_) close(listener.socket);
    fs::remove_all(folder_);
}

std::string Nginx::url(const std::string& host, std::string_view path) const {
    const int port = listeners_.at(host).port;
    return (host == "plain" ? "http" : "https") + std::string("://127.0.0.1:") + std::to_string(port)
           + std::string(path);
}

std::string Nginx::large() {
    std::string text = "{";
    for (int i = 0; i < 5000; ++i) text += "\"member" + std::to_string(i) + "\": \"some value\",\n";
    return text + "\"last\": true}";
}

void Nginx::writeFiles() const {
    const std::string certificates =
        std::string(QUORIN_SOURCE_DIR) + "/tests/support/make-certificates.sh '" + folder_.string() + "'";
    if (std::system(certificates.c_str()) != 0) std::exit(1);
    fs::create_directory(folder_ / "html");
    write(folder_ / "html/object.json", object);
    write(folder_ / "html/list.json", list);
    write(folder_ / "html/large.json", large());
    write(folder_ / "nginx.conf", configuration());
}

std::string Nginx::configuration() const {
    std::string text = R"(daemon off; user root; worker_processes 1; pid nginx.pid; error_log error.log;
events { worker_connections 256; }
http {
    access_log off; root html; types { application/json json; } client_body_temp_path body; proxy_temp_path proxy;
    fastcgi_temp_path fastcgi; uwsgi_temp_path uwsgi; scgi_temp_path scgi; gzip on; gzip_types application/json;
    server {
        listen 127.0.0.1:)";
    text += std::to_string(listeners_.at("plain").port) + R"(;
        add_header X-Connection $connection always;
        add_header X-Cookie $http_cookie always;
        location = /moved { return 301 /object.json; }
        location = /circle { return 302 /circle; }
        location = /up { return 302 )";
    text += url("good", "/object.json") + R"(; }
        location = /failing { default_type application/json; return 500 '{"reason": "broken"}'; }
    }
)";
    for (const auto& [host, listener] : listeners_) {
        if (host != "plain") text += tlsServer(host, listener.port, url("plain", "/object.json"));
    }
    return text + "}\n";
}

/// nginx takes over sockets that listen already, as after an upgrade of itself: so no port can be lost to another
/// program, and connections wait until it is up. (It crashes on them without a master process.)
void Nginx::start() {
    const std::string nginx = binary();
    const std::string prefix = folder_.string() + "/";
    std::string libraries = "LD_LIBRARY_PATH=" + nginx.substr(0, nginx.rfind("/sbin/")) + "/lib/x86_64-linux-gnu";
    std::string sockets = "NGINX=";
    for (const auto& [host, listener] : listeners_) sockets += std::to_string(listener.socket) + ";";
    char* const environment[] = {libraries.data(), sockets.data(), nullptr};
    const pid_t parent = getpid();
    process_ = fork();
    if (process_ != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) _exit(1);
    for (const auto& [host, listener] : listeners_) fcntl(listener.socket, F_SETFD, 0);
    execle(nginx.c_str(), nginx.c_str(), "-p", prefix.c_str(), "-c", "nginx.conf", "-e", "error.log", nullptr,
           environment);
    _exit(127);
}

}  // namespace quorin::support
