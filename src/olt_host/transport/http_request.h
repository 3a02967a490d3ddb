// As much of HTTP/1 as it takes to hand one document to a client and close.
#ifndef OLT_HOST_TRANSPORT_HTTP_REQUEST_H
#define OLT_HOST_TRANSPORT_HTTP_REQUEST_H

#include <string>

namespace olt_host {

// What a request may be answered with.
enum class HttpStatus { kOk, kBadRequest, kNotFound, kMethodNotAllowed, kHeadTooLong };

struct HttpRequest {
  HttpStatus status = HttpStatus::kBadRequest;  // kOk: the document is asked for
  bool wants_body = true;                       // false: only what HEAD tells
};

// `head` is a request up to the empty line behind its header, or cut anywhere. Only GET and
// HEAD of `path`, a query behind it or not, are kOk.
HttpRequest ReadHttpRequest(const std::string& head, const std::string& path);

// The whole answer. `body` is the document, which only kOk has.
std::string HttpAnswer(const HttpRequest& request, const std::string& path,
                       const std::string& content_type, const std::string& body);

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_HTTP_REQUEST_H
