#pragma once

/// The questions, by the class of the runtime that answers them.

namespace conformance {

void askRegistry();
void askPaths();
void askQuotaFiles();
void askSystem();
void askDevice();
void askConfigurator();
void askCluster();
void askVolumes();
void askDomain();
void askLocalAccounts();
void askDomainAccounts();
void askQuotas();
void askErrors();
void askLog();
void askCommandLine();
void askQuotaTexts();
void askCalls();
void askSids();

}  // namespace conformance
