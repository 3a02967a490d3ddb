#include "transport/http_request.h"

namespace olt_host {

namespace {

const char* ReasonOf(HttpStatus status) {
  switch (status) {
    case HttpStatus::kOk:
      return "200 OK";
    case HttpStatus::kBadRequest:
      return "400 Bad Request";
    case HttpStatus::kNotFound:
      return "404 Not Found";
    case HttpStatus::kMethodNotAllowed:
      return "405 Method Not Allowed";
    case HttpStatus::kHeadTooLong:
      return "431 Request Header Fields Too Large";
  }
  return "";
}

}  // namespace

HttpRequest ReadHttpRequest(const std::string& head, const std::string& path) {
  HttpRequest request;
  const std::string line = head.substr(0, head.find("\r\n"));
  const std::size_t method_end = line.find(' ');
  const std::size_t target_end = line.rfind(' ');
  if (method_end == 0 || method_end == std::string::npos || target_end <= method_end + 1 ||
      line.find(' ', method_end + 1) != target_end) {
    return request;
  }
  const std::string version = line.substr(target_end + 1);
  if (version != "HTTP/1.0" && version != "HTTP/1.1") return request;
  const std::string method = line.substr(0, method_end);
  const std::string target = line.substr(method_end + 1, target_end - method_end - 1);
  request.wants_body = method != "HEAD";
  if (method != "GET" && method != "HEAD") {
    request.status = HttpStatus::kMethodNotAllowed;
  } else {
    const bool is_known = target.substr(0, target.find('?')) == path;
    request.status = is_known ? HttpStatus::kOk : HttpStatus::kNotFound;
  }
  return request;
}

std::string HttpAnswer(const HttpRequest& request, const std::string& path,
                       const std::string& content_type, const std::string& body) {
  const bool is_ok = request.status == HttpStatus::kOk;
  const std::string content =
      is_ok ? body : std::string(ReasonOf(request.status)) + "; expected GET " + path + "\n";
  std::string answer = std::string("HTTP/1.1 ") + ReasonOf(request.status) + "\r\n";
  answer += "Content-Type: " + (is_ok ? content_type : "text/plain; charset=utf-8") + "\r\n";
  answer += "Content-Length: " + std::to_string(content.size()) + "\r\n";
  if (request.status == HttpStatus::kMethodNotAllowed) answer += "Allow: GET, HEAD\r\n";
  answer += "Connection: close\r\n\r\n";
  return request.wants_body ? answer + content : answer;
}

}  // namespace olt_host
